// The dialog templates as they stand, without the procedures of their dialogs.
#include "pages/controls.h"
#include "tests/pages/dialog_controls.h"
#include "tests/pages/dialog_windows.h"
#include "tests/pages/keyboard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include <commctrl.h>

namespace {

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

class Template {
  public:
    explicit Template(int id) : m_owner(CreateWindowA("Static", "", WS_POPUP, 0, 0, 10, 10, 0, 0, 0, 0)) {
        RegisterPageControls();
        m_dialog = CreateDialogParamA(nullptr, MAKEINTRESOURCEA(id), m_owner, NoProcedure, 0);
    }
    ~Template() {
        DestroyWindow(m_dialog);
        DestroyWindow(m_owner);
    }
    Template(const Template&) = delete;
    Template& operator=(const Template&) = delete;

    HWND Dialog() const { return m_dialog; }
    HWND Control(int id) const { return GetDlgItem(m_dialog, id); }
    std::vector<HWND> Controls() const { return ControlsOf(m_dialog); }

    // Dialog units of the template's own font in pixels.
    SIZE Pixels(int width, int height) const {
        RECT units{0, 0, width, height};
        MapDialogRect(m_dialog, &units);
        return {units.right, units.bottom};
    }

  private:
    HWND m_owner;
    HWND m_dialog;
};

class DialogTemplate : public testing::TestWithParam<int> {
  protected:
    Template dialog{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(All, DialogTemplate, testing::ValuesIn(kTemplates),
                         [](const auto& test) { return std::to_string(test.param); });

// Where a template tells its font: behind a fixed part, no menu, no class and the title.
const WORD* FontOf(int id) {
    constexpr std::size_t kFixedBytes = 26;
    const HRSRC place = FindResourceA(nullptr, MAKEINTRESOURCEA(id), RT_DIALOG);
    const auto* bytes = static_cast<const std::byte*>(LockResource(LoadResource(nullptr, place)));
    const auto* word = reinterpret_cast<const WORD*>(bytes + kFixedBytes);
    EXPECT_EQ(word[0], 0);
    EXPECT_EQ(word[1], 0);
    word += 2;
    while (*word++ != 0) {
    }
    return word;
}

// Wine gives a font of its own choice the name, but not the character set, of what a template asks for.
TEST_P(DialogTemplate, HasTheJapaneseSystemFontOfNinePoints) {
    const WORD* font = FontOf(GetParam());
    EXPECT_EQ(font[0], 9);
    EXPECT_EQ(font[2] >> 8, 0x80);
    EXPECT_STREQ(reinterpret_cast<const wchar_t*>(font + 3), L"MS UI Gothic");
}

struct DialogSize {
    int id;
    int width;
    int height;
};

TEST(DialogTemplates, HaveTheirSizes) {
    for (const auto& [id, width, height] : {DialogSize{kStandardPage, 539, 360},
                                            {kAdvancedPage, 539, 360},
                                            {kCustomPage, 263, 104},
                                            {kJobName, 263, 88},
                                            {kSavePreset, 263, 68},
                                            {kFavorites, 320, 154},
                                            {kDevicePage, 252, 218}}) {
        const Template dialog(id);
        // A page has a caption in its template, which the property sheet takes off.
        RECT client{};
        GetClientRect(dialog.Dialog(), &client);
        const SIZE expected = dialog.Pixels(width, height);
        EXPECT_EQ(client.right, expected.cx) << id;
        EXPECT_EQ(client.bottom, expected.cy) << id;
    }
}

TEST(DialogTemplates, GiveThePreviewRoomForItsPictureEvenWhereAUnitIsOneAndAHalfPixels) {
    const Template page(kStandardPage);
    const RECT place = PlaceOf(page.Control(1285));
    const SIZE least = page.Pixels(130, 91);
    EXPECT_GE(place.right - place.left, std::max(190L, least.cx));
    EXPECT_GE(place.bottom - place.top, std::max(136L, least.cy));
}

struct KindLook {
    const char* className;
    LONG_PTR mask;
    LONG_PTR style;
};

constexpr LONG_PTR kLines = ES_MULTILINE | ES_WANTRETURN | ES_NUMBER | ES_READONLY;
constexpr LONG_PTR kComboType = CBS_DROPDOWNLIST | CBS_SORT;
constexpr LONG_PTR kSpin = UDS_AUTOBUDDY | UDS_SETBUDDYINT | UDS_NOTHOUSANDS | UDS_ARROWKEYS;

KindLook LookOf(Kind kind) {
    switch (kind) {
    case Kind::Text: return {WC_STATICA, SS_TYPEMASK, SS_LEFT};
    case Kind::Drawn: return {WC_STATICA, SS_TYPEMASK, SS_OWNERDRAW};
    case Kind::Sorted: return {WC_COMBOBOXA, kComboType, CBS_DROPDOWNLIST | CBS_SORT};
    case Kind::Plain: return {WC_COMBOBOXA, kComboType, CBS_DROPDOWNLIST};
    case Kind::Extended: return {WC_COMBOBOXEXA, kComboType, CBS_DROPDOWNLIST};
    case Kind::Check: return {WC_BUTTONA, BS_TYPEMASK, BS_AUTOCHECKBOX};
    case Kind::Radio: return {WC_BUTTONA, BS_TYPEMASK, BS_AUTORADIOBUTTON};
    case Kind::Group: return {WC_BUTTONA, BS_TYPEMASK, BS_GROUPBOX};
    // A button is the default one or not.
    case Kind::Button: return {WC_BUTTONA, BS_TYPEMASK & ~BS_DEFPUSHBUTTON, BS_PUSHBUTTON};
    case Kind::Number: return {WC_EDITA, ES_NUMBER | ES_READONLY, ES_NUMBER};
    case Kind::Edit: return {WC_EDITA, ES_NUMBER | ES_READONLY, 0};
    // Return is not for the edit but for the dialog.
    case Kind::Lines: return {WC_EDITA, kLines, ES_MULTILINE};
    // Its rows stand as they are added.
    case Kind::List: return {WC_LISTBOXA, LBS_NOTIFY | LBS_SORT | LBS_MULTIPLESEL, LBS_NOTIFY};
    case Kind::Spin: return {UPDOWN_CLASSA, kSpin, kSpin};
    }
    return {};
}

TEST_P(DialogTemplate, HasEachControlInItsKind) {
    for (const auto& [id, kind, label] : kControls.at(GetParam())) {
        const HWND control = dialog.Control(id);
        ASSERT_NE(control, nullptr) << id;
        const KindLook look = LookOf(kind);
        EXPECT_TRUE(IsOfClass(control, look.className)) << NameOf(control);
        EXPECT_EQ(GetWindowLongPtrA(control, GWL_STYLE) & look.mask, look.style) << NameOf(control);
    }
}

TEST_P(DialogTemplate, HasEachLabelDirectlyBeforeItsControl) {
    for (const auto& [id, kind, label] : kControls.at(GetParam())) {
        if (label != 0) {
            EXPECT_EQ(NameOf(GetWindow(dialog.Control(label), GW_HWNDNEXT)), NameOf(dialog.Control(id)));
        }
    }
}

TEST_P(DialogTemplate, HasNoControlThatIsNotListed) {
    std::vector<int> listed;
    for (const auto& [id, kind, label] : kControls.at(GetParam())) {
        listed.push_back(id);
        listed.push_back(label);
    }
    for (const HWND control : dialog.Controls()) {
        if (!IsGroupBox(control)) {
            EXPECT_TRUE(std::ranges::count(listed, GetDlgCtrlID(control))) << NameOf(control);
        }
    }
}

// Message boxes are told from other dialogs by this id.
TEST_P(DialogTemplate, HasNoControlWithTheIdOfAMessageBoxesText) {
    EXPECT_EQ(dialog.Control(0xFFFF), nullptr);
    EXPECT_EQ(dialog.Control(-1), nullptr);
}

bool Meet(const RECT& a, const RECT& b) {
    RECT common{};
    return IntersectRect(&common, &a, &b);
}

bool Holds(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

TEST_P(DialogTemplate, HasNoControlsThatOverlap) {
    const std::vector<HWND> controls = dialog.Controls();
    for (auto first = controls.begin(); first != controls.end(); ++first) {
        if (IsGroupBox(*first))
            continue;
        for (auto second = std::next(first); second != controls.end(); ++second) {
            // A spin control stands in its edit field.
            if (!IsGroupBox(*second) && !IsOfClass(*second, UPDOWN_CLASSA)) {
                EXPECT_FALSE(Meet(PlaceOf(*first), PlaceOf(*second)))
                    << NameOf(*first) << ", " << NameOf(*second);
            }
        }
    }
}

TEST_P(DialogTemplate, HasEachControlWhollyInOneGroupOrInNone) {
    RECT client{};
    GetClientRect(dialog.Dialog(), &client);
    const std::vector<HWND> controls = dialog.Controls();
    for (const HWND control : controls) {
        EXPECT_TRUE(Holds(client, PlaceOf(control))) << NameOf(control);
        for (const HWND group : controls) {
            if (group != control && IsGroupBox(group) && Meet(PlaceOf(group), PlaceOf(control))) {
                EXPECT_TRUE(!IsGroupBox(control) && Holds(PlaceOf(group), PlaceOf(control)))
                    << NameOf(control) << " in " << TextOf(group);
            }
        }
    }
}

// What a control takes of its width beside its text.
int RoomBesideText(HWND control) {
    if (IsButtonWithMark(control))
        return 16;
    if (IsGroupBox(control) || IsOfClass(control, WC_BUTTONA))
        return 12;
    return 0;
}

TEST_P(DialogTemplate, HasRoomForEachText) {
    for (const HWND control : dialog.Controls()) {
        if (!IsOfClass(control, WC_BUTTONA) && !IsOfClass(control, WC_STATICA))
            continue;
        RECT client{};
        GetClientRect(control, &client);
        const SIZE text = SizeOfText(control, TextOf(control));
        EXPECT_LE(text.cx + RoomBesideText(control), client.right)
            << NameOf(control) << " " << TextOf(control);
        EXPECT_LE(text.cy, client.bottom) << NameOf(control) << " " << TextOf(control);
    }
}

TEST_P(DialogTemplate, BeginsEachColumnOfAGroupAtOnePlace) {
    // Columns that begin less than this apart would look like a slip.
    constexpr LONG kSlip = 12;
    const std::vector<HWND> controls = dialog.Controls();
    for (const HWND first : controls) {
        for (const HWND second : controls) {
            const LONG apart = PlaceOf(first).left - PlaceOf(second).left;
            if (IsOfClass(first, UPDOWN_CLASSA) || IsOfClass(second, UPDOWN_CLASSA) ||
                IsGroupBox(first) != IsGroupBox(second))
                continue;
            EXPECT_FALSE(apart > 0 && apart < kSlip) << NameOf(first) << ", " << NameOf(second);
        }
    }
}

// 4003 has the one letter that stands twice in the labels' table; 4005 has one that the dialog hides with its
// row.
TEST_P(DialogTemplate, HasEachAcceleratorOnce) {
    std::map<char, Ids> users;
    for (const HWND control : dialog.Controls()) {
        if (const char letter = AcceleratorOf(TextOf(control)))
            users[letter].push_back(GetDlgCtrlID(control));
    }
    if (GetParam() == kMediaType) {
        EXPECT_EQ(std::exchange(users['G'], {60005}), (std::vector{60005, 60004}));
    }
    if (GetParam() == kMediaTypeBypass) {
        EXPECT_EQ(std::exchange(users['S'], {1328}), (std::vector{1328, 1374}));
    }
    ExpectEachLetterOnce(users);
}

// These stand in no string.
TEST(DialogTemplates, NameTheSubjectsOfTheStandardPage) {
    const Template page(kStandardPage);
    std::vector<std::string> groups;
    for (const HWND control : page.Controls()) {
        if (IsGroupBox(control))
            groups.push_back(TextOf(control));
    }
    EXPECT_EQ(groups, (std::vector<std::string>{"登録した設定", "プレビュー", "原稿と用紙", "レイアウト",
                                                "仕上げ", "原稿の向き", "部数", "排出", "ジョブ"}));
}

TEST(DialogTemplates, HideWhatThePageNeverShows) {
    const Template page(kStandardPage);
    EXPECT_FALSE(IsShown(page.Control(1243)));
}

TEST(DialogTemplates, HaveADefaultButtonInEachDialog) {
    for (const int id :
         {kCustomPage, kMediaType, kMediaTypeBypass, kMediaTypeAutoTray, kJobName, kSavePreset, kFavorites}) {
        const Template dialog(id);
        const LRESULT button = SendMessageA(dialog.Dialog(), DM_GETDEFID, 0, 0);
        EXPECT_EQ(HIWORD(button), DC_HASDEFID) << id;
        EXPECT_EQ(LOWORD(button), id == kCustomPage ? 1321 : IDOK) << id;
    }
}

} // namespace
