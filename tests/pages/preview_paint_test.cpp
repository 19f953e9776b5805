// What the preview paints, and that nothing of it stays behind.
#include "Common/strings.h"
#include "Common/win_handles.h"
#include "pages/SettingPreview.h"
#include "session/keyword.h"
#include "tests/pages/made_bitmaps.h"
#include "tests/pages/preview_test_resource.h"
#include "tests/pages/preview_window.h"
#include "tests/support/main_log.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr SIZE kCanvas{300, 300};
constexpr COLORREF kAround = RGB(0x12, 0x34, 0x56);

// The symbols, but for the one of folding in three, and the layers of the jobs painted here.
const std::vector<int> kMade{1056, 1057, 1058, 1062, 1063, 1099, 1101, 1103, 1104, 1105,        1106, 1107,
                             1108, 7001, 7002, 7004, 7005, 7011, 7012, 7017, 7019, 7025,        7043, 7645,
                             7678, 7682, 7911, 7913, 7916, 7932, 7933, 7935, 7937, kSolidBitmap};
constexpr std::uint32_t kFoldWithoutBitmap = 3;

// A picture of its own in memory, on which the preview is painted.
class Canvas {
  public:
    Canvas() : m_context(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = kCanvas.cx;
        info.bmiHeader.biHeight = -kCanvas.cy; // rows from the top down
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* pixels = nullptr;
        m_bitmap.Reset(CreateDIBSection(m_context.Get(), &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
        m_pixels = static_cast<const std::uint8_t*>(pixels);
        m_former = SelectObject(m_context.Get(), m_bitmap.Get());
        const RECT whole{0, 0, kCanvas.cx, kCanvas.cy};
        const UniqueBrush brush(CreateSolidBrush(kAround));
        FillRect(m_context.Get(), &whole, brush.Get());
    }
    ~Canvas() { SelectObject(m_context.Get(), m_former); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Context() const { return m_context.Get(); }

    Picture Painted() const {
        GdiFlush();
        Picture picture{kCanvas.cx, kCanvas.cy, {}};
        for (int i = 0; i < kCanvas.cx * kCanvas.cy; ++i)
            picture.pixels.push_back(RGB(m_pixels[4 * i + 2], m_pixels[4 * i + 1], m_pixels[4 * i]));
        return picture;
    }

  private:
    UniqueBitmap m_bitmap;
    UniqueMemoryContext m_context;
    HGDIOBJ m_former;
    const std::uint8_t* m_pixels;
};

void ExpectSame(const Picture& painted, const Picture& expected) {
    int different = 0;
    for (int y = 0; y < expected.height; ++y) {
        for (int x = 0; x < expected.width; ++x) {
            if (painted.At(x, y) != expected.At(x, y) && ++different <= 3)
                ADD_FAILURE() << std::hex << painted.At(x, y) << " instead of " << expected.At(x, y)
                              << std::dec << " at " << x << "," << y;
        }
    }
    EXPECT_EQ(different, 0);
}

class PreviewPaint : public PreviewWindow {
  protected:
    static void SetUpTestSuite() { module = std::make_unique<MadeModule>(kMade); }
    static void TearDownTestSuite() { module.reset(); }

    PreviewPaint() {
        Open(IDD_PREVIEW_TEST);
        SetStringModule(module->Handle());
    }

    SIZE Client() const {
        RECT client{};
        GetClientRect(Control(), &client);
        return {client.right, client.bottom};
    }

    // Paints the preview and compares every pixel.
    void ExpectPaint(const std::vector<PlacedBitmap>& bitmaps) const {
        const Canvas canvas;
        DrawPreview(Control(), canvas.Context());
        ExpectSame(canvas.Painted(), ExpectedPicture(kCanvas, kAround, Client(), bitmaps));
    }

    // All eleven bitmaps that one paint can have.
    void SetFullJob() {
        SetCurrent(keyword::ColorMode, 1);
        SetCurrent(keyword::DuplexMode, 1);
        SetCurrent(keyword::StapleMode, 1);
        SetCurrent(keyword::Punch, 1);
        SetCurrent(keyword::PunchHoles, 1);
        SetCurrent(keyword::Collate, 1);
        SetCurrent(keyword::Fold, 1);
    }

    static inline std::unique_ptr<MadeModule> module;
};

TEST_F(PreviewPaint, TheBackgroundFillsTheClientAreaAndNothingElse) {
    SetStringModule(nullptr); // without any bitmap
    ExpectPaint({});
}

TEST_F(PreviewPaint, APlainJob) {
    ExpectPaint({{1056, 0, 0}, {1063, 0, 40}, {7001, 62, 8}, {7011, 62, 8}});
}

TEST_F(PreviewPaint, AJobWithEverything) {
    SetFullJob();
    ExpectPaint({{1056, 0, 0},
                 {1062, 0, 40},
                 {1101, 0, 80},
                 {7001, 62, 8},
                 {7011, 62, 8},
                 {7012, 62, 8},
                 {7645, 62, 8},
                 {7678, 62, 8},
                 {7005, 62, 8},
                 {7017, 62, 8},
                 {7043, 62, 8}});
}

TEST_F(PreviewPaint, AStapleOnTheFarSide) {
    SetCurrent(keyword::DuplexMode, 1);
    SetCurrent(keyword::StapleMode, 2);
    ExpectPaint({{1056, 0, 0},
                 {1063, 0, 40},
                 {7001, 62, 8},
                 {7011, 62, 8},
                 {7682, 62, 8},
                 {7004, 62, 8},
                 {7019, 62, 8}});
}

TEST_F(PreviewPaint, ABookletOfSmallLayersEachAtItsOwnPlace) {
    SetCurrent(keyword::NUP, 6);
    SetCurrent(keyword::ColorMode, 1);
    SetCurrent(keyword::StapleMode, 11);
    SetCurrent(keyword::DuplexMode, 1);
    ExpectPaint({{1056, 0, 0}, {1063, 0, 40}, {7911, 96, 16}, {7913, 100, 25}, {7916, 94, 39}});
    SetCurrent(keyword::PageOrientation, 2);
    ExpectPaint(
        {{1058, 0, 0}, {1063, 0, 40}, {7932, 81, 32}, {7933, 86, 37}, {7935, 89, 59}, {7937, 104, 30}});
}

TEST_F(PreviewPaint, ALandscapePage) {
    SetCurrent(keyword::PageOrientation, 1);
    ExpectPaint({{1057, 0, 0}, {1063, 0, 40}, {7002, 62, 8}, {7025, 62, 8}});
}

TEST_F(PreviewPaint, EveryFold) {
    const std::vector<int> folds{1101, 1099, 1102, 1108, 1107, 1107, 1104, 1103, 1106, 1105};
    for (std::uint32_t fold = 1; fold <= folds.size(); ++fold) {
        SCOPED_TRACE(fold);
        SetCurrent(keyword::Fold, fold);
        std::vector<PlacedBitmap> bitmaps{{1056, 0, 0}, {1063, 0, 40}, {7001, 62, 8}, {7011, 62, 8}};
        if (fold != kFoldWithoutBitmap)
            bitmaps.push_back({folds[fold - 1], 0, 80});
        ExpectPaint(bitmaps);
    }
}

TEST_F(PreviewPaint, ValuesOutOfRangeLeaveOnlyWhatTheyDoNotTouch) {
    for (const int id : {keyword::NUP, keyword::DuplexMode, keyword::ColorMode, keyword::PageOrientation,
                         keyword::StapleMode, keyword::PunchHoles, keyword::Punch, keyword::Fold})
        SetCurrent(id, 0xFFFFFFFF);
    ExpectPaint({{1063, 0, 40}});
}

TEST_F(PreviewPaint, ALayerCoversItsPlaceAtTheResolutionOfTheTarget) {
    const Canvas canvas;
    const int dpiX = GetDeviceCaps(canvas.Context(), LOGPIXELSX);
    const int dpiY = GetDeviceCaps(canvas.Context(), LOGPIXELSY);
    DrawImageAreaPart(canvas.Context(), PlaceLayer(kSolidBitmap - 7000));
    const Picture painted = canvas.Painted();
    const TargetRectangle place{62 * dpiX / 96, 8 * dpiY / 96, 120 * dpiX / 96, 120 * dpiY / 96};
    for (int y = 0; y < kCanvas.cy; ++y) {
        for (int x = 0; x < kCanvas.cx; ++x) {
            const bool inside =
                x >= place.x && x < place.x + place.width && y >= place.y && y < place.y + place.height;
            ASSERT_EQ(painted.At(x, y) != kAround, inside) << x << "," << y << " at " << dpiX << " dpi";
        }
    }
}

// The program's own entry for the platform's function, through which all its code calls it.
extern "C" int(WINAPI* deviceCapsEntry)(HDC, int) __asm__("__imp_GetDeviceCaps");
decltype(deviceCapsEntry) platformDeviceCaps = nullptr;

int WINAPI UnequalResolution(HDC context, int index) {
    switch (index) {
    case LOGPIXELSX: return 192;
    case LOGPIXELSY: return 120;
    default: return platformDeviceCaps(context, index);
    }
}

// While it lives, every device has 192 dpi across and 120 down.
class DeviceOfUnequalResolution {
  public:
    DeviceOfUnequalResolution() {
        platformDeviceCaps = deviceCapsEntry;
        Replace(UnequalResolution);
    }
    ~DeviceOfUnequalResolution() { Replace(platformDeviceCaps); }
    DeviceOfUnequalResolution(const DeviceOfUnequalResolution&) = delete;
    DeviceOfUnequalResolution& operator=(const DeviceOfUnequalResolution&) = delete;

  private:
    static void Replace(decltype(deviceCapsEntry) function) {
        DWORD protection = 0;
        ASSERT_TRUE(VirtualProtect(&deviceCapsEntry, sizeof deviceCapsEntry, PAGE_READWRITE, &protection));
        deviceCapsEntry = function;
        VirtualProtect(&deviceCapsEntry, sizeof deviceCapsEntry, protection, &protection);
    }
};

TEST_F(PreviewPaint, ABitmapIsPlacedAndSizedByTheResolutionOfEachDirection) {
    const DeviceOfUnequalResolution device;
    const Canvas canvas;
    DrawBitmap(canvas.Context(), kSolidBitmap, 20, 30);
    const Picture painted = canvas.Painted();
    for (int y = 0; y < kCanvas.cy; ++y) {
        for (int x = 0; x < kCanvas.cx; ++x) {
            const bool inside = x >= 40 && x < 40 + 240 && y >= 37 && y < 37 + 150;
            ASSERT_EQ(painted.At(x, y) != kAround, inside) << x << "," << y;
        }
    }
}

TEST_F(PreviewPaint, IsDrawnWhenTheDialogIsAskedToDrawTheControl) {
    UpdateWindow(Control());
    EXPECT_GE(Drawings(), 1);
    const Picture expected = ExpectedPicture(kCanvas, kAround, Client(),
                                             {{1056, 0, 0}, {1063, 0, 40}, {7001, 62, 8}, {7011, 62, 8}});
    const HDC window = GetDC(Control());
    for (int y = 2; y < Client().cy; y += 13)
        for (int x = 2; x < Client().cx; x += 11)
            EXPECT_EQ(GetPixel(window, x, y), expected.At(x, y)) << x << "," << y;
    ReleaseDC(Control(), window);
}

TEST_F(PreviewPaint, PaintsThatFollowEachOtherLeaveNoGraphicsObjects) {
    SetFullJob();
    const Canvas canvas;
    DrawPreview(Control(), canvas.Context());
    const int before = GraphicsObjects();
    for (int i = 0; i < 200; ++i)
        DrawPreview(Control(), canvas.Context());
    EXPECT_EQ(GraphicsObjects(), before);
    ExpectPaint({{1056, 0, 0},
                 {1062, 0, 40},
                 {1101, 0, 80},
                 {7001, 62, 8},
                 {7011, 62, 8},
                 {7012, 62, 8},
                 {7645, 62, 8},
                 {7678, 62, 8},
                 {7005, 62, 8},
                 {7017, 62, 8},
                 {7043, 62, 8}});
}

TEST_F(PreviewPaint, PaintsThatFailLeaveNoGraphicsObjects) {
    const auto noContext = reinterpret_cast<HDC>(0x123456);
    const Canvas canvas;
    const int before = GraphicsObjects();
    for (int i = 0; i < 50; ++i) {
        DrawBitmap(noContext, 1056, 0, 0);
        DrawBitmap(nullptr, 1056, 0, 0);
        DrawBitmap(canvas.Context(), 1102, 0, 0);
        DrawPreview(nullptr, noContext);
    }
    EXPECT_EQ(GraphicsObjects(), before);
}

TEST_F(PreviewPaint, ALoadedBitmapIsNotSharedWithTheNextLoad) {
    const auto load = [] {
        return UniqueBitmap(static_cast<HBITMAP>(LoadImageA(module->Handle(), MAKEINTRESOURCEA(1056),
                                                            IMAGE_BITMAP, 0, 0, LR_DEFAULTSIZE | LR_SHARED)));
    };
    const UniqueBitmap first = load();
    const UniqueBitmap second = load();
    EXPECT_NE(first.Get(), nullptr);
    EXPECT_NE(first.Get(), second.Get());
}

class PreviewLog : public PreviewPaint {
  protected:
    static void SetUpTestSuite() {
        PreviewPaint::SetUpTestSuite();
        log = std::make_unique<MainLog>();
    }
    static void TearDownTestSuite() {
        log.reset();
        PreviewPaint::TearDownTestSuite();
    }

    PreviewLog() { log->Forget(); }

    // Lines of DrawBitmap that end so.
    static std::ptrdiff_t Lines(const std::string& end) {
        return std::ranges::count_if(log->Messages(), [&](const std::string& line) {
            return line.find("SettingPreview.cpp ") != std::string::npos &&
                   line.ends_with("DrawBitmap() " + end);
        });
    }

    static inline std::unique_ptr<MainLog> log;
};

TEST_F(PreviewLog, EachBitmapPaintedIsLogged) {
    SetFullJob();
    const Canvas canvas;
    DrawPreview(Control(), canvas.Context());
    EXPECT_EQ(Lines("finish"), 11);
    EXPECT_EQ(Lines("hBitmap == NULL"), 0);
}

TEST_F(PreviewLog, ABitmapThatIsNotThereIsLoggedAndLeftOut) {
    const Canvas canvas;
    DrawBitmap(canvas.Context(), 1102, 0, 0);
    EXPECT_EQ(Lines("hBitmap == NULL"), 1);
    EXPECT_EQ(Lines("finish"), 0);
    ExpectSame(canvas.Painted(), ExpectedPicture(kCanvas, kAround, {0, 0}, {}));
}

TEST_F(PreviewLog, NumbersThatAreNoResourcesAreLoggedAndLeftOut) {
    const Canvas canvas;
    for (const int number : {0, -1, 0x10000 + 1056, std::numeric_limits<int>::max()})
        DrawBitmap(canvas.Context(), number, 0, 0);
    EXPECT_EQ(Lines("hBitmap == NULL"), 4);
    ExpectSame(canvas.Painted(), ExpectedPicture(kCanvas, kAround, {0, 0}, {}));
}

TEST_F(PreviewLog, AZeroOfATripleIsLoggedAndLeftOut) {
    SetCurrent(keyword::NUP, 6);
    const Canvas canvas;
    DrawPreview(Control(), canvas.Context());
    EXPECT_EQ(Lines("finish"), 3);
    EXPECT_EQ(Lines("hBitmap == NULL"), 1);
    ExpectSame(canvas.Painted(),
               ExpectedPicture(kCanvas, kAround, Client(), {{1056, 0, 0}, {1063, 0, 40}, {7911, 96, 16}}));
}

TEST_F(PreviewLog, ALayerThatIsNotInUseIsLoggedAndLeftOut) {
    const Canvas canvas;
    for (const int layer : {0, 327, 1087, -5})
        DrawImageAreaPart(canvas.Context(), PlaceLayer(layer));
    EXPECT_EQ(Lines("hBitmap == NULL"), 4);
}

TEST_F(PreviewLog, ATargetThatIsNoneIsLogged) {
    DrawBitmap(reinterpret_cast<HDC>(0x123456), 1056, 0, 0);
    EXPECT_EQ(Lines("hMemDC == NULL"), 1);
    EXPECT_EQ(Lines("finish"), 0);
}

} // namespace
