#include "host/screenshot.h"

#include "Common/win_handles.h"
#include "host/window_outline.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

// The platform's header takes these from windows.h, which is included without them here.
#include <objidl.h>

#include <gdiplus.h>

namespace {

constexpr CLSID kPngEncoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

// The device context of a window's content or, by GetWindowDC, of all that the window itself paints; of the
// screen for a null window.
class WindowDc {
  public:
    explicit WindowDc(HWND window, decltype(&GetDC) get = &GetDC) : m_window(window), m_dc(get(window)) {}
    ~WindowDc() { ReleaseDC(m_window, m_dc); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC Get() const { return m_dc; }

  private:
    HWND m_window;
    HDC m_dc;
};

// A picture in memory that parts of other pictures are copied into.
class Canvas {
  public:
    explicit Canvas(SIZE size)
        : m_size(size), m_dc(CreateCompatibleDC(nullptr)),
          m_bitmap(CreateCompatibleBitmap(WindowDc(nullptr).Get(), size.cx, size.cy)),
          m_previous(SelectObject(m_dc, m_bitmap.Get())) {}
    ~Canvas() {
        SelectObject(m_dc, m_previous);
        DeleteDC(m_dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    bool Copy(POINT to, SIZE size, HDC source, POINT from) const {
        return BitBlt(m_dc, to.x, to.y, size.cx, size.cy, source, from.x, from.y, SRCCOPY);
    }

    std::vector<std::uint32_t> Pixels() const {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = m_size.cx;
        info.bmiHeader.biHeight = -m_size.cy; // from the top down
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(m_size.cx) *
                                          static_cast<std::size_t>(m_size.cy));
        GetDIBits(m_dc, m_bitmap.Get(), 0, static_cast<UINT>(m_size.cy), pixels.data(), &info,
                  DIB_RGB_COLORS);
        for (std::uint32_t& pixel : pixels)
            pixel &= 0xFFFFFF;
        return pixels;
    }

    HDC Get() const { return m_dc; }

    // Takes the bitmap out; nothing more can be copied into it.
    UniqueBitmap Release() {
        SelectObject(m_dc, m_previous);
        return std::move(m_bitmap);
    }

  private:
    SIZE m_size;
    HDC m_dc;
    UniqueBitmap m_bitmap;
    HGDIOBJ m_previous;
};

struct Place {
    POINT corner;
    SIZE size;
};

Place FrameOf(HWND window) {
    RECT frame{};
    GetWindowRect(window, &frame);
    return {{frame.left, frame.top}, {frame.right - frame.left, frame.bottom - frame.top}};
}

Place ContentOf(HWND window) {
    RECT content{};
    GetClientRect(window, &content);
    POINT corner{};
    ClientToScreen(window, &corner);
    return {corner, {content.right, content.bottom}};
}

// A window manager's frame may be narrower than the one that the platform reckons with, and the rest of the
// window's rectangle shows what is behind. What the window itself paints is all of the rectangle where there
// is no such frame.
Place ShownPart(const Canvas& whole, SIZE size, const RECT& painted) {
    const std::vector<std::uint32_t> pixels = whole.Pixels();
    const PixelBox part =
        OutlinedPart({pixels, size.cx, size.cy}, {painted.left, painted.top, painted.right, painted.bottom});
    return {{part.left, part.top}, {part.right - part.left, part.bottom - part.top}};
}

void PaintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

class PngWriter {
  public:
    PngWriter() {
        const Gdiplus::GdiplusStartupInput input;
        m_ok = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    ~PngWriter() {
        if (m_ok)
            Gdiplus::GdiplusShutdown(m_token);
    }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    bool Save(HBITMAP bitmap, const std::wstring& file) const {
        namespace flat = Gdiplus::DllExports;
        Gdiplus::GpBitmap* image = nullptr;
        if (!m_ok || flat::GdipCreateBitmapFromHBITMAP(bitmap, nullptr, &image) != Gdiplus::Ok)
            return false;
        const bool saved =
            flat::GdipSaveImageToFile(image, file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
        flat::GdipDisposeImage(image);
        return saved;
    }

  private:
    ULONG_PTR m_token = 0;
    bool m_ok = false;
};

} // namespace

bool IsOnScreen(HWND window) {
    PaintNow(window);
    const Place content = ContentOf(window);
    const Canvas own(content.size);
    const Canvas screen(content.size);
    return own.Copy({0, 0}, content.size, WindowDc(window).Get(), {0, 0}) &&
           screen.Copy({0, 0}, content.size, WindowDc(nullptr).Get(), content.corner) &&
           own.Pixels() == screen.Pixels();
}

std::string WriteScreenshot(HWND window, const std::wstring& file) {
    PaintNow(window);
    const Place frame = FrameOf(window);
    if (frame.size.cx <= 0 || frame.size.cy <= 0)
        return "the window has no area";
    // A window manager's frame is on the screen only; what the window itself paints is complete in its own
    // device context, even where something covers it.
    const Canvas whole(frame.size);
    const WindowDc own(window, &GetWindowDC);
    RECT painted{};
    GetClipBox(own.Get(), &painted);
    if (!whole.Copy({0, 0}, frame.size, WindowDc(nullptr).Get(), frame.corner) ||
        !whole.Copy({painted.left, painted.top}, {painted.right - painted.left, painted.bottom - painted.top},
                    own.Get(), {painted.left, painted.top}))
        return "the window's picture can't be taken";
    const Place part = ShownPart(whole, frame.size, painted);
    Canvas picture(part.size);
    if (!picture.Copy({0, 0}, part.size, whole.Get(), part.corner))
        return "the window's picture can't be taken";
    if (!PngWriter().Save(picture.Release().Get(), file))
        return "the picture can't be written";
    return "";
}
