// Pictures of a window that stands before another one.
#include "host/screenshot.h"

#include "Common/win_handles.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

// The platform's header takes these from windows.h, which is included without them here.
#include <objidl.h>

#include <gdiplus.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr COLORREF kBehind = RGB(255, 0, 255);
constexpr COLORREF kContent = RGB(0, 255, 0);
constexpr std::uint32_t kBehindPixel = 0xFFFF00FF;
constexpr std::uint32_t kContentPixel = 0xFF00FF00;

struct Style {
    const char* name;
    DWORD style;
    DWORD extended;
};

// A window whose content has one colour.
class ColorWindow {
  public:
    ColorWindow(const wchar_t* name, COLORREF color, const Style& style, RECT place, HWND owner)
        : m_name(name), m_brush(CreateSolidBrush(color)) {
        WNDCLASSW ofColor{};
        ofColor.lpfnWndProc = DefWindowProcW;
        ofColor.hInstance = GetModuleHandleW(nullptr);
        ofColor.hbrBackground = m_brush.Get();
        ofColor.lpszClassName = name;
        RegisterClassW(&ofColor);
        m_window = CreateWindowExW(style.extended, name, name, style.style | WS_VISIBLE, place.left,
                                   place.top, place.right - place.left, place.bottom - place.top, owner,
                                   nullptr, ofColor.hInstance, nullptr);
    }
    ~ColorWindow() {
        DestroyWindow(m_window);
        UnregisterClassW(m_name, GetModuleHandleW(nullptr));
    }
    ColorWindow(const ColorWindow&) = delete;
    ColorWindow& operator=(const ColorWindow&) = delete;
    HWND Get() const { return m_window; }

  private:
    const wchar_t* m_name;
    UniqueBrush m_brush;
    HWND m_window = nullptr;
};

struct Picture {
    UINT width = 0;
    UINT height = 0;
    std::vector<std::uint32_t> pixels;

    auto Count(std::uint32_t pixel) const { return std::count(pixels.begin(), pixels.end(), pixel); }
};

Picture ReadPicture(const std::wstring& file) {
    namespace flat = Gdiplus::DllExports;
    const Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    EXPECT_EQ(Gdiplus::GdiplusStartup(&token, &input, nullptr), Gdiplus::Ok);
    Picture picture;
    Gdiplus::GpBitmap* image = nullptr;
    EXPECT_EQ(flat::GdipCreateBitmapFromFile(file.c_str(), &image), Gdiplus::Ok);
    flat::GdipGetImageWidth(image, &picture.width);
    flat::GdipGetImageHeight(image, &picture.height);
    for (UINT y = 0; y < picture.height; ++y)
        for (UINT x = 0; x < picture.width; ++x) {
            Gdiplus::ARGB pixel = 0;
            flat::GdipBitmapGetPixel(image, static_cast<INT>(x), static_cast<INT>(y), &pixel);
            picture.pixels.push_back(pixel);
        }
    flat::GdipDisposeImage(image);
    Gdiplus::GdiplusShutdown(token);
    return picture;
}

class Screenshot : public testing::TestWithParam<Style>, protected TestFolder {
  protected:
    static constexpr RECT kBehindPlace{100, 100, 700, 600};
    static constexpr RECT kPlace{250, 250, 550, 450};
    // Of the window in front: left, above, right and below.
    static constexpr POINT kAround[] = {{240, 350}, {400, 240}, {560, 350}, {400, 460}};

    // The window in front, its frame, and the one behind on all its sides.
    void WaitUntilShown(HWND window) const {
        for (int tries = 0; tries < 1000; ++tries) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageW(&message);
            const HDC screen = GetDC(nullptr);
            const bool isBehind = std::ranges::all_of(
                kAround, [screen](POINT point) { return GetPixel(screen, point.x, point.y) == kBehind; });
            ReleaseDC(nullptr, screen);
            if (isBehind && IsOnScreen(window))
                return;
            Sleep(10);
        }
        FAIL() << "the window does not come to the front";
    }

    Picture Take(HWND window) const {
        const std::wstring file = (folder / "x.png").wstring();
        EXPECT_EQ(WriteScreenshot(window, file), "");
        return ReadPicture(file);
    }

    ColorWindow m_behind{L"behind", kBehind, Style{"Behind", WS_OVERLAPPEDWINDOW, 0}, kBehindPlace, nullptr};
};

// A window manager's frame is narrower than the window's rectangle, whose corner then shows what is behind.
bool FillsItsRectangle(HWND window) {
    RECT frame{};
    GetWindowRect(window, &frame);
    const HDC screen = GetDC(nullptr);
    const COLORREF corner = GetPixel(screen, frame.left, frame.top);
    ReleaseDC(nullptr, screen);
    return corner != kBehind;
}

TEST_P(Screenshot, ShowsAllOfTheWindowAndNothingBehindIt) {
    const ColorWindow window(L"window", kContent, GetParam(), kPlace, m_behind.Get());
    WaitUntilShown(window.Get());
    RECT content{};
    GetClientRect(window.Get(), &content);
    const Picture picture = Take(window.Get());
    EXPECT_EQ(picture.width == 300 && picture.height == 200, FillsItsRectangle(window.Get()))
        << picture.width << " x " << picture.height;
    EXPECT_EQ(picture.Count(kContentPixel), content.right * content.bottom);
    EXPECT_EQ(picture.Count(kBehindPixel), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, Screenshot,
    testing::Values(Style{"NoFrame", WS_POPUP, 0}, Style{"Border", WS_POPUP | WS_BORDER, 0},
                    Style{"Dialog", WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME},
                    Style{"OfAnySize", WS_OVERLAPPEDWINDOW, 0},
                    Style{"ClientEdge", WS_OVERLAPPEDWINDOW, WS_EX_CLIENTEDGE},
                    Style{"ScrollBars", WS_OVERLAPPEDWINDOW | WS_VSCROLL | WS_HSCROLL, 0}),
    [](const auto& style) { return std::string(style.param.name); });

} // namespace
