// The texts of ZRPDS31JENU.dll fit into the dialogs that ZRPDS31J.dll has, whose controls keep their places.
#include "dialog_template.h"
#include "option_text_numbers.h"
#include "resource_module.h"

#include "resources/resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace {

// The font in which a dialog is measured, and its units.
class Measure {
  public:
    Measure(const wchar_t* face, int points) : m_context(CreateCompatibleDC(nullptr)) {
        m_font = CreateFontW(-MulDiv(points, 96, 72), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0,
                             0, face);
        m_former = SelectObject(m_context, m_font);
        std::array<wchar_t, 64> selected{};
        GetTextFaceW(m_context, static_cast<int>(selected.size()), selected.data());
        EXPECT_STREQ(selected.data(), face);
        m_unit = (Extent(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz") / 26 + 1) / 2;
    }
    ~Measure() {
        SelectObject(m_context, m_former);
        DeleteObject(m_font);
        DeleteDC(m_context);
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    int Extent(const std::wstring& text) const {
        SIZE size{};
        GetTextExtentPoint32W(m_context, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }
    int Pixels(int units) const { return MulDiv(units, m_unit, 4); }

  private:
    HDC m_context;
    HFONT m_font;
    HGDIOBJ m_former;
    int m_unit = 0;
};

constexpr wchar_t kStaticClass[] = L"#130";
constexpr wchar_t kButtonClass[] = L"#128";

// What a control needs beside its text, in pixels: the box of a check or radio button, the frame of a push
// button or of a group. Nothing for a control that holds no caption.
int RoomBesideText(const TemplateItem& item) {
    if (item.className == kStaticClass)
        return 0;
    switch (item.style & BS_TYPEMASK) {
    case BS_AUTOCHECKBOX:
    case BS_AUTORADIOBUTTON: return 18;
    case BS_GROUPBOX: return 16;
    default: return 8;
    }
}

// A combo box whose rows are the texts of an option list.
struct OptionCombo {
    int dialog;
    int control;
    const char* list;
    int imageWidth; // in pixels, of the images that its rows have, if only for what is not fitted
};

constexpr OptionCombo kOptionCombos[]{
    {IDD_STANDARD_PAGE, IDC_OUTPUT_PAPER_SIZE, "ChgPrintPaperSizeType", 0},
    {IDD_STANDARD_PAGE, IDC_FIT_SIZE, "FittenToPaper", 0},
    {IDD_STANDARD_PAGE, IDC_SOURCE, "Tray", 16},
    {IDD_STANDARD_PAGE, IDC_NUP, "NUP", 24},
    {IDD_STANDARD_PAGE, IDC_DUPLEX, "DuplexMode", 24},
    {IDD_STANDARD_PAGE, IDC_COLOR_MODEL, "ColorMode", 24},
    {IDD_STANDARD_PAGE, IDC_STAPLE, "StapleMode", 24},
    {IDD_STANDARD_PAGE, IDC_FOLD, "Fold", 24},
    {IDD_STANDARD_PAGE, IDC_OUTPUT_TRAY, "OutputTray", 16},
    {IDD_STANDARD_PAGE, IDC_JOG, "OffsetMode", 0},
    {IDD_ADVANCED_PAGE, IDC_RESOLUTION, "Resolution", 0},
    {IDD_CUSTOM_PAGE, IDC_CUSTOM_DIRECTION, "CustomPaperDirection", 0},
    {IDD_MEDIA_TYPE_AUTO_TRAY, IDC_MEDIA_PAPER_TYPE, "PaperTypeD", 0},
    {IDD_MEDIA_TYPE_AUTO_TRAY, IDC_MEDIA_WEIGHT, "MediaTypeWeight", 0},
    {IDD_MEDIA_TYPE_AUTO_TRAY, IDC_MEDIA_COLOR, "PaperColor", 0},
    {IDD_MEDIA_TYPE_BYPASS, IDC_MEDIA_PAPER_TYPE, "PaperTypeD", 0},
    {IDD_MEDIA_TYPE_BYPASS, IDC_MEDIA_COLOR, "PaperColor", 0},
    {IDD_MEDIA_TYPE, IDC_MEDIA_PAPER_TYPE, "PaperTypeD", 0},
    {IDD_MEDIA_TYPE, IDC_MEDIA_COLOR, "PaperColor", 0},
};

// What a row needs beside its text, in pixels: the arrow, the frame and the image with its distance.
int RoomBesideRow(const OptionCombo& combo) {
    constexpr int kArrow = 17;
    constexpr int kFrame = 6;
    constexpr int kImageDistance = 4;
    return kArrow + kFrame + (combo.imageWidth == 0 ? 0 : combo.imageWidth + kImageDistance);
}

class EnglishSatelliteRoom : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(satellite.Get()); }

    const ResourceModule satellite{"ZRPDS31JENU.dll"};
    // The font that an English system shows dialogs in, or one that has its widths.
    const Measure measure{L"Tahoma", 8};
};

} // namespace

TEST_F(EnglishSatelliteRoom, IsEnoughForEachCaption) {
    for (const int number : satellite.Numbers(RT_DIALOG)) {
        for (const TemplateItem& item : TemplateOf(satellite, number).items) {
            if (item.className != kStaticClass && item.className != kButtonClass)
                continue;
            const std::wstring text = WithoutAccelerator(item.title);
            EXPECT_LE(measure.Extent(text) + RoomBesideText(item), measure.Pixels(item.width))
                << number << " " << std::string(text.begin(), text.end());
        }
    }
}

TEST_F(EnglishSatelliteRoom, IsEnoughForEachRowOfAnOptionList) {
    for (const OptionCombo& combo : kOptionCombos) {
        const std::vector<TemplateItem> items = TemplateOf(satellite, combo.dialog).items;
        const auto item = std::ranges::find(items, combo.control, &TemplateItem::number);
        ASSERT_NE(item, items.end()) << combo.list;
        for (const unsigned number : kListedTexts.at(combo.list)) {
            const std::wstring text = satellite.String(number);
            EXPECT_LE(measure.Extent(text) + RoomBesideRow(combo), measure.Pixels(item->width))
                << combo.list << " " << std::string(text.begin(), text.end());
        }
    }
}
