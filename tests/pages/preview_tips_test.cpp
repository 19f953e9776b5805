// The tooltips over the preview.
#include "pages/SettingPreview.h"
#include "resources/resource.h"
#include "session/keyword.h"
#include "tests/pages/preview_test_resource.h"
#include "tests/pages/preview_window.h"

#include <commctrl.h>

#include <array>
#include <string>

void PrintTo(const RECT& r, std::ostream* out) {
    *out << r.left << "," << r.top << "," << r.right << "," << r.bottom;
}

namespace {

class PreviewTips : public PreviewWindow {
  protected:
    PreviewTips() { Open(IDD_PREVIEW_TEST); }

    HWND Tooltip() const { return reinterpret_cast<HWND>(GetWindowLongPtrA(dialog, GWLP_USERDATA)); }

    TOOLINFOA Tool(UINT_PTR id, char* text = nullptr) const {
        TOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V2_SIZE;
        tool.hwnd = Control();
        tool.uId = id;
        tool.lpszText = text;
        EXPECT_TRUE(SendMessageA(Tooltip(), text ? TTM_GETTEXTA : TTM_GETTOOLINFOA, 0,
                                 reinterpret_cast<LPARAM>(&tool)) ||
                    text);
        return tool;
    }

    std::string Text(UINT_PTR id) const {
        std::array<char, 512> text;
        text.fill('?');
        Tool(id, text.data());
        return text.data();
    }

    LRESULT ToolCount() const { return SendMessageA(Tooltip(), TTM_GETTOOLCOUNT, 0, 0); }

    void Change(int keyword, std::uint32_t value) {
        SetCurrent(keyword, value);
        UpdatePreview(dialog, 0);
    }
};

bool Same(const RECT& a, const RECT& b) {
    return EqualRect(&a, &b) != 0;
}

TEST_F(PreviewTips, TheTooltipWindowBelongsToThePageAndIsKeptThere) {
    CreateToolTip(dialog);
    ASSERT_NE(Tooltip(), nullptr);
    std::array<char, 64> name{};
    GetClassNameA(Tooltip(), name.data(), static_cast<int>(name.size()));
    EXPECT_STREQ(name.data(), "tooltips_class32");
    EXPECT_EQ(GetWindow(Tooltip(), GW_OWNER), dialog);
    EXPECT_TRUE(GetWindowLongA(Tooltip(), GWL_STYLE) & TTS_ALWAYSTIP);
}

TEST_F(PreviewTips, ThreeToolsStandOnTheControlAtTheirPlaces) {
    CreateToolTip(dialog);
    EXPECT_EQ(ToolCount(), 3);
    const std::array<RECT, 3> places{{{2, 0, 34, 32}, {2, 32, 34, 64}, {2, 96, 34, 128}}};
    for (UINT_PTR id = 1; id <= 3; ++id) {
        const TOOLINFOA tool = Tool(id);
        EXPECT_TRUE(Same(tool.rect, places[id - 1])) << testing::PrintToString(tool.rect);
        EXPECT_EQ(tool.uFlags, static_cast<UINT>(TTF_SUBCLASS));
    }
}

TEST_F(PreviewTips, TheTextsOfAJobThatWasNotChanged) {
    CreateToolTip(dialog);
    EXPECT_EQ(Text(1), "原稿の向き:たて原稿");
    EXPECT_EQ(Text(2), "ソートする[1部ごと]:オフ");
    EXPECT_EQ(Text(3), "");
}

TEST_F(PreviewTips, TheFirstTellsTheOrientation) {
    CreateToolTip(dialog);
    Change(keyword::PageOrientation, 1);
    EXPECT_EQ(Text(1), "原稿の向き:よこ変更");
    Change(keyword::PageOrientation, 2);
    EXPECT_EQ(Text(1), "原稿の向き:横向きに回転");
    Change(keyword::PageOrientation, 0);
    EXPECT_EQ(Text(1), "原稿の向き:たて原稿");
}

TEST_F(PreviewTips, AGreaterOrientationIsTakenForTheNumberOfAText) {
    CreateToolTip(dialog);
    Change(keyword::PageOrientation, 1050);
    EXPECT_EQ(Text(1), "原稿の向き:スタンプ");
    Change(keyword::PageOrientation, 3);
    EXPECT_EQ(Text(1), "原稿の向き:");
}

TEST_F(PreviewTips, AnyOrientationGivesSomeText) {
    CreateToolTip(dialog);
    for (const std::uint32_t orientation : {0xFFFFu, 0x10000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        Change(keyword::PageOrientation, orientation);
        EXPECT_TRUE(Text(1).starts_with("原稿の向き:")) << orientation;
    }
}

TEST_F(PreviewTips, TheSecondTellsWhetherCopiesAreCollated) {
    CreateToolTip(dialog);
    Change(keyword::Collate, 1);
    EXPECT_EQ(Text(2), "ソートする[1部ごと]:オン");
    Change(keyword::Collate, 0);
    EXPECT_EQ(Text(2), "ソートする[1部ごと]:オフ");
}

TEST_F(PreviewTips, TheThirdSaysThatThereIsNoStampWhenThereIsOneAndNothingElse) {
    CreateToolTip(dialog);
    Change(keyword::WaterMark, 1);
    EXPECT_EQ(Text(3), "スタンプ:(なし)");
    Change(keyword::WaterMark, 0);
    EXPECT_EQ(Text(3), "");
}

TEST_F(PreviewTips, AnUpdateAddsNoTool) {
    CreateToolTip(dialog);
    UpdatePreview(dialog, 0);
    EXPECT_EQ(ToolCount(), 3);
}

TEST_F(PreviewTips, AnUpdateHasThePicturePaintedAnew) {
    CreateToolTip(dialog);
    UpdateWindow(Control());
    const int before = Drawings();
    UpdatePreview(dialog, 0);
    RECT changed{};
    ASSERT_TRUE(GetUpdateRect(Control(), &changed, FALSE));
    RECT client{};
    GetClientRect(Control(), &client);
    EXPECT_TRUE(Same(changed, client)) << testing::PrintToString(changed);
    UpdateWindow(Control());
    EXPECT_EQ(Drawings(), before + 1);
}

int erasings = 0;

LRESULT CALLBACK CountErasing(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_ERASEBKGND)
        ++erasings;
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(PreviewTips, AnUpdateErasesThePicture) {
    CreateToolTip(dialog);
    UpdateWindow(Control());
    SetWindowSubclass(Control(), CountErasing, 1, 0);
    erasings = 0;
    UpdatePreview(dialog, 0);
    UpdateWindow(Control());
    EXPECT_EQ(erasings, 1);
}

// Runs the dialog's messages until the tooltip is shown, at most for this long.
bool IsShownWithin(HWND tooltip, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (!IsWindowVisible(tooltip) && GetTickCount() - start < milliseconds) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
        Sleep(10);
    }
    return IsWindowVisible(tooltip) != 0;
}

// A control that lets the mouse through to the page would bring no tip.
class ProductPageTips : public PreviewTips {
  protected:
    ProductPageTips() {
        DestroyWindow(dialog);
        OpenProductPage();
    }
};

TEST_F(ProductPageTips, AMouseThatRestsOnTheOrientationBringsTheTip) {
    CreateToolTip(dialog);
    SetForegroundWindow(GetParent(dialog));
    POINT place{10, 10};
    ClientToScreen(Control(), &place);
    SetCursorPos(place.x, place.y);
    ASSERT_TRUE(IsShownWithin(Tooltip(), 5000));
    TOOLINFOA current{};
    current.cbSize = TTTOOLINFOA_V2_SIZE;
    EXPECT_TRUE(SendMessageA(Tooltip(), TTM_GETCURRENTTOOLA, 0, reinterpret_cast<LPARAM>(&current)));
    EXPECT_EQ(current.uId, 1u);
}

TEST_F(PreviewTips, WithoutATooltipWindowAnUpdateDoesNothing) {
    UpdateWindow(Control());
    UpdatePreview(dialog, 0);
    EXPECT_FALSE(GetUpdateRect(Control(), nullptr, FALSE));
}

TEST_F(PreviewTips, UpdatesLeaveNoGraphicsObjects) {
    CreateToolTip(dialog);
    UpdateWindow(Control());
    const int before = GraphicsObjects();
    for (std::uint32_t i = 0; i < 200; ++i) {
        Change(keyword::PageOrientation, i % 3);
        UpdateWindow(Control());
    }
    EXPECT_EQ(GraphicsObjects(), before);
}

TEST_F(PreviewTips, TheTooltipWindowGoesWithThePage) {
    CreateToolTip(dialog);
    const HWND tooltip = Tooltip();
    DestroyWindow(dialog);
    dialog = nullptr;
    EXPECT_FALSE(IsWindow(tooltip));
}

class PageWithoutPreview : public PreviewTips {
  protected:
    PageWithoutPreview() {
        DestroyWindow(dialog);
        Open(IDD_PREVIEW_TEST_EMPTY);
    }
};

TEST_F(PageWithoutPreview, HasATooltipWindowWithoutTools) {
    CreateToolTip(dialog);
    ASSERT_NE(Tooltip(), nullptr);
    EXPECT_EQ(ToolCount(), 0);
    UpdatePreview(dialog, 0);
    EXPECT_EQ(ToolCount(), 0);
}

} // namespace
