#include "pages/SettingPreview.h"

#include "Common/log.h"
#include "Common/strings.h"
#include "Common/win_handles.h"
#include "resources/resource.h"
#include "session/bank_values.h"
#include "session/keyword.h"

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>

namespace {

constexpr COLORREF kBackground = RGB(0x99, 0x99, 0x99);
constexpr COLORREF kTransparent = RGB(0xFF, 0x00, 0xFF);

HINSTANCE Module() {
    return static_cast<HINSTANCE>(StringModule());
}

SymbolSettings CurrentSymbols() {
    return {.pageOrientation = CurrentOf(keyword::PageOrientation),
            .collate = CurrentOf(keyword::Collate),
            .fold = CurrentOf(keyword::Fold)};
}

PreviewSettings CurrentPicture() {
    return {.nup = CurrentOf(keyword::NUP),
            .duplexMode = CurrentOf(keyword::DuplexMode),
            .colorMode = CurrentOf(keyword::ColorMode),
            .pageOrientation = CurrentOf(keyword::PageOrientation),
            .stapleMode = CurrentOf(keyword::StapleMode),
            .punchHoles = CurrentOf(keyword::PunchHoles),
            .punch = CurrentOf(keyword::Punch)};
}

void FillBackground(HWND control, HDC target) {
    RECT client{};
    GetClientRect(control, &client);
    const UniqueBrush brush(CreateSolidBrush(kBackground));
    FillRect(target, &client, brush.Get());
}

// Each load of a bitmap makes a new one, shared or not, so whoever loads it frees it.
UniqueBitmap LoadBitmapResource(int resourceId) {
    if (resourceId <= 0 || resourceId > std::numeric_limits<WORD>::max())
        return {};
    return UniqueBitmap(static_cast<HBITMAP>(
        LoadImageA(Module(), MAKEINTRESOURCEA(resourceId), IMAGE_BITMAP, 0, 0, LR_DEFAULTSIZE | LR_SHARED)));
}

// Keeps an object selected into a device context while it lives.
class Selection {
  public:
    Selection(HDC context, HGDIOBJ object) : m_context(context), m_former(SelectObject(context, object)) {}
    ~Selection() { SelectObject(m_context, m_former); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC m_context;
    HGDIOBJ m_former;
};

struct Tip {
    UINT_PTR id;
    RECT place; // on the preview control
    std::string text;
};

std::string Join(UINT name, UINT value) {
    return LoadText(name) + ":" + LoadText(value);
}

// An orientation without a text of its own stands for the text's number.
UINT OrientationText(std::uint32_t pageOrientation) {
    constexpr std::array<UINT, 3> kTexts{IDS_TIP_PORTRAIT, IDS_TIP_LANDSCAPE, IDS_TIP_ROTATED};
    return pageOrientation < kTexts.size() ? kTexts[pageOrientation] : pageOrientation;
}

// The third tip names the stamp only when there is one, and then says that there is none.
std::array<Tip, 3> CurrentTips() {
    return {{
        {1, {2, 0, 34, 32}, Join(IDS_TIP_ORIENTATION, OrientationText(CurrentOf(keyword::PageOrientation)))},
        {2, {2, 32, 34, 64}, Join(IDS_TIP_COLLATE, CurrentOf(keyword::Collate) ? IDS_TIP_ON : IDS_TIP_OFF)},
        {3, {2, 96, 34, 128}, CurrentOf(keyword::WaterMark) ? Join(IDS_TIP_STAMP, IDS_TIP_NO_STAMP) : ""},
    }};
}

void SendTip(HWND tooltip, UINT message, HWND control, Tip tip) {
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE; // the only size that both versions of the control accept
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = control;
    tool.uId = tip.id;
    tool.rect = tip.place;
    tool.hinst = Module();
    tool.lpszText = tip.text.data();
    SendMessageA(tooltip, message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace

void DrawPreview(HWND control, HDC target) {
    ZR_LOG_ENTRY();
    FillBackground(control, target);
    const PreviewPlan plan = PlanPreview(CurrentSymbols(), CurrentPicture());
    for (const PlacedBitmap& symbol : plan.Symbols())
        DrawBitmap(target, symbol.bitmap, symbol.x, symbol.y);
    DrawImageArea(target, plan.Picture());
}

void DrawImageArea(HDC target, std::span<const PlacedBitmap> picture) {
    ZR_LOG_ENTRY();
    for (const PlacedBitmap& layer : picture)
        DrawImageAreaPart(target, layer);
}

void DrawImageAreaPart(HDC target, const PlacedBitmap& layer) {
    ZR_LOG_ENTRY();
    DrawBitmap(target, layer.bitmap, layer.x, layer.y);
}

void DrawBitmap(HDC target, int resourceId, int x, int y) {
    ZR_LOG_ENTRY();
    const UniqueBitmap bitmap = LoadBitmapResource(resourceId);
    if (!bitmap) {
        ZR_LOG("hBitmap == NULL\n");
        return;
    }
    BITMAP size{};
    GetObjectA(bitmap.Get(), sizeof size, &size);
    const UniqueMemoryContext source(CreateCompatibleDC(target));
    if (!source) {
        ZR_LOG("hMemDC == NULL\n");
        return;
    }
    const Selection selection(source.Get(), bitmap.Get());
    const TargetRectangle place =
        ScaleToDevice(x, y, size.bmWidth, size.bmHeight, GetDeviceCaps(target, LOGPIXELSX),
                      GetDeviceCaps(target, LOGPIXELSY));
    TransparentBlt(target, place.x, place.y, place.width, place.height, source.Get(), 0, 0, size.bmWidth,
                   size.bmHeight, kTransparent);
    ZR_LOG("finish\n");
}

void CreateToolTip(HWND page) {
    ZR_LOG_ENTRY();
    const HWND tooltip =
        CreateWindowExA(0, TOOLTIPS_CLASSA, nullptr, TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, page, nullptr, Module(), nullptr);
    if (!tooltip)
        ZR_LOG("no tooltip window\n");
    SetWindowLongPtrA(page, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(tooltip));
    UpdatePreview(page, 1);
}

void UpdatePreview(HWND page, int addTools) {
    ZR_LOG_ENTRY();
    const auto tooltip = reinterpret_cast<HWND>(GetWindowLongPtrA(page, GWLP_USERDATA));
    const HWND control = GetDlgItem(page, IDC_PREVIEW);
    if (!tooltip || !control)
        return;
    InvalidateRect(control, nullptr, TRUE);
    for (const Tip& tip : CurrentTips())
        SendTip(tooltip, addTools ? TTM_ADDTOOLA : TTM_UPDATETIPTEXTA, control, tip);
}
