// ZRPDS31JENU.dll beside ZRPDS31J.dll: the same resources, but for the language of the texts.
#include "option_text_numbers.h"

#include "resources/resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include <windows.h>

namespace {

class Module {
  public:
    explicit Module(const char* name)
        : m_module(LoadLibraryExA(name, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE)) {
    }
    ~Module() { FreeLibrary(m_module); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    HMODULE Get() const { return m_module; }

    // The numbers of a type's resources.
    std::set<int> Numbers(LPCSTR type) const {
        std::set<int> numbers;
        EnumResourceNamesA(
            m_module, type,
            [](HMODULE, LPCSTR, LPSTR name, LONG_PTR list) -> BOOL {
                EXPECT_TRUE(IS_INTRESOURCE(name));
                reinterpret_cast<std::set<int>*>(list)->insert(static_cast<int>(LOWORD(name)));
                return TRUE;
            },
            reinterpret_cast<LONG_PTR>(&numbers));
        return numbers;
    }

    std::string Bytes(LPCSTR type, int number) const {
        const HRSRC place = FindResourceA(m_module, MAKEINTRESOURCEA(number), type);
        const void* data = place ? LockResource(LoadResource(m_module, place)) : nullptr;
        EXPECT_TRUE(data) << number;
        return data ? std::string(static_cast<const char*>(data), SizeofResource(m_module, place)) : "";
    }

  private:
    HMODULE m_module;
};

std::set<int> TypesOf(const Module& module) {
    std::set<int> types;
    EnumResourceTypesA(
        module.Get(),
        [](HMODULE, LPSTR type, LONG_PTR list) -> BOOL {
            reinterpret_cast<std::set<int>*>(list)->insert(static_cast<int>(LOWORD(type)));
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&types));
    return types;
}

std::set<WORD> LanguagesOf(const Module& module, LPCSTR type, int number) {
    std::set<WORD> languages;
    EnumResourceLanguagesA(
        module.Get(), type, MAKEINTRESOURCEA(number),
        [](HMODULE, LPCSTR, LPCSTR, WORD language, LONG_PTR list) -> BOOL {
            reinterpret_cast<std::set<WORD>*>(list)->insert(language);
            return TRUE;
        },
        reinterpret_cast<LONG_PTR>(&languages));
    return languages;
}

std::wstring StringOf(const Module& module, unsigned number) {
    std::array<wchar_t, 512> text{};
    LoadStringW(module.Get(), number, text.data(), static_cast<int>(text.size()));
    return text.data();
}

// A control, or the dialog itself with no class, as a template tells it.
struct Item {
    std::string fixed; // help number, styles, place and, of a control, its number
    int number = 0;
    short width = 0;
    DWORD style = 0;
    std::wstring className; // or the number of a system class
    std::wstring title;
};

struct Template {
    Item dialog;
    std::wstring font;
    WORD fontSize = 0;
    std::vector<Item> items;
};

class TemplateReader {
  public:
    explicit TemplateReader(std::string bytes) : m_bytes(std::move(bytes)) {}

    Template Read() {
        Template result;
        const std::string head = Take(8); // version, signature, help number
        EXPECT_EQ(head.substr(0, 4), std::string("\1\0\xFF\xFF", 4));
        result.dialog = Fixed();
        const WORD count = Word();
        TakePlace(result.dialog);
        result.dialog.className = TextOrNumber() + TextOrNumber(); // menu and class
        result.dialog.title = TextOrNumber();
        result.fontSize = Word();
        Take(4); // weight, slant and character set
        result.font = TextOrNumber();
        for (int i = 0; i < count; ++i)
            result.items.push_back(Control());
        EXPECT_EQ(m_at, m_bytes.size());
        return result;
    }

  private:
    std::string Take(std::size_t size) {
        EXPECT_LE(m_at + size, m_bytes.size());
        std::string part = m_bytes.substr(std::min(m_at, m_bytes.size()), size);
        part.resize(size);
        m_at += size;
        return part;
    }
    WORD Word() {
        WORD word = 0;
        std::memcpy(&word, Take(sizeof word).data(), sizeof word);
        return word;
    }
    std::wstring TextOrNumber() {
        std::wstring text;
        WORD word = Word();
        if (word == 0xFFFF)
            return L"#" + std::to_wstring(Word());
        for (; word != 0; word = Word())
            text += static_cast<wchar_t>(word);
        return text;
    }
    Item Fixed() {
        Item item;
        item.fixed = Take(8); // extended style, style
        std::memcpy(&item.style, item.fixed.data() + 4, sizeof item.style);
        return item;
    }
    void TakePlace(Item& item) {
        const std::string place = Take(8);
        std::memcpy(&item.width, place.data() + 4, sizeof item.width);
        item.fixed += place;
    }
    Item Control() {
        m_at = (m_at + 3) / 4 * 4;
        Take(4); // help number
        Item item = Fixed();
        TakePlace(item);
        const std::string number = Take(4);
        std::memcpy(&item.number, number.data(), sizeof item.number);
        item.fixed += number;
        item.className = TextOrNumber();
        item.title = TextOrNumber();
        Take(Word());
        return item;
    }

    std::string m_bytes;
    std::size_t m_at = 0;
};

bool IsAscii(const std::wstring& text) {
    return std::ranges::all_of(text, [](wchar_t c) { return c < 0x80; });
}

class EnglishSatellite : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(module.Get());
        ASSERT_TRUE(satellite.Get());
    }

    static Template TemplateOf(const Module& from, int number) {
        return TemplateReader(from.Bytes(RT_DIALOG, number)).Read();
    }

    void ExpectSameBytes(LPCSTR type) {
        const std::set<int> numbers = module.Numbers(type);
        ASSERT_FALSE(numbers.empty());
        EXPECT_EQ(satellite.Numbers(type), numbers);
        for (const int number : numbers)
            EXPECT_TRUE(satellite.Bytes(type, number) == module.Bytes(type, number)) << number;
    }

    Module module{"ZRPDS31J.dll"};
    Module satellite{"ZRPDS31JENU.dll"};
};

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
int RoomBesideText(const Item& item) {
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

std::wstring WithoutAccelerator(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

} // namespace

TEST_F(EnglishSatellite, HasTheTypesOfResourcesThatTheModuleHas) {
    EXPECT_EQ(TypesOf(satellite), TypesOf(module));
}

TEST_F(EnglishSatellite, HasNoCodeToRun) {
    const Module image("ZRPDS31JENU.dll");
    const auto* base = reinterpret_cast<const char*>(reinterpret_cast<UINT_PTR>(image.Get()) & ~UINT_PTR{3});
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    EXPECT_EQ(headers->OptionalHeader.AddressOfEntryPoint, 0u);
}

TEST_F(EnglishSatellite, HasTheImagesOfTheModule) {
    ExpectSameBytes(RT_BITMAP);
    ExpectSameBytes(RT_ICON);
    ExpectSameBytes(RT_GROUP_ICON);
}

TEST_F(EnglishSatellite, HasTheStringsOfTheModuleByNumber) {
    int strings = 0;
    for (unsigned number = 1; number <= 0xFFFF; ++number) {
        const std::wstring own = StringOf(module, number);
        const std::wstring english = StringOf(satellite, number);
        ASSERT_EQ(own.empty(), english.empty()) << number;
        EXPECT_TRUE(IsAscii(english)) << number;
        // What is ASCII in the module is no text, but for the language's name.
        EXPECT_EQ(IsAscii(own) && number != IDS_LANGUAGE, own == english) << number;
        strings += own.empty() ? 0 : 1;
    }
    EXPECT_GT(strings, 480);
}

TEST_F(EnglishSatellite, IsInEnglish) {
    for (const auto type : {RT_STRING, RT_DIALOG, RT_VERSION}) {
        for (const int number : satellite.Numbers(type))
            EXPECT_EQ(LanguagesOf(satellite, type, number), std::set<WORD>{0x0409}) << number;
    }
    EXPECT_EQ(StringOf(satellite, IDS_STANDARD_PAGE_TITLE), L"Basic");
    EXPECT_EQ(StringOf(satellite, IDS_ADVANCED_PAGE_TITLE), L"Detailed Settings");
    EXPECT_EQ(StringOf(satellite, IDS_DEVICE_PAGE_TITLE), L"Initial Settings");
}

TEST_F(EnglishSatellite, TellsItsNameInItsVersion) {
    const std::string bytes = satellite.Bytes(RT_VERSION, VS_VERSION_INFO);
    const std::wstring words(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / 2);
    for (const wchar_t* text : {L"040904b0", L"ZRPDS31JENU.dll", L"Zephra"})
        EXPECT_NE(words.find(text), std::wstring::npos) << text;
}

TEST_F(EnglishSatellite, HasTheDialogsOfTheModuleWithTheSameControls) {
    const std::set<int> numbers = module.Numbers(RT_DIALOG);
    EXPECT_TRUE(numbers.contains(IDD_STANDARD_PAGE) && numbers.contains(IDD_DEVICE_PAGE));
    ASSERT_EQ(satellite.Numbers(RT_DIALOG), numbers);
    for (const int number : numbers) {
        SCOPED_TRACE(number);
        const Template own = TemplateOf(module, number);
        const Template english = TemplateOf(satellite, number);
        EXPECT_EQ(english.dialog.fixed, own.dialog.fixed);
        EXPECT_EQ(english.dialog.className, own.dialog.className);
        ASSERT_EQ(english.items.size(), own.items.size());
        for (std::size_t i = 0; i < own.items.size(); ++i) {
            EXPECT_EQ(english.items[i].fixed, own.items[i].fixed) << i;
            EXPECT_EQ(english.items[i].className, own.items[i].className) << i;
            EXPECT_EQ(english.items[i].title.empty(), own.items[i].title.empty()) << i;
        }
    }
}

TEST_F(EnglishSatellite, HasEnglishCaptionsInTheSystemsDialogFont) {
    for (const int number : satellite.Numbers(RT_DIALOG)) {
        const Template dialog = TemplateOf(satellite, number);
        EXPECT_EQ(dialog.font, L"MS Shell Dlg") << number;
        EXPECT_EQ(dialog.fontSize, 8) << number;
        EXPECT_TRUE(IsAscii(dialog.dialog.title)) << number;
        for (const Item& item : dialog.items)
            EXPECT_TRUE(IsAscii(item.title)) << number;
    }
}

// The font that an English system shows dialogs in, or one that has its widths.
TEST_F(EnglishSatellite, HasRoomForEachCaption) {
    const Measure measure(L"Tahoma", 8);
    for (const int number : satellite.Numbers(RT_DIALOG)) {
        for (const Item& item : TemplateOf(satellite, number).items) {
            if (item.className != kStaticClass && item.className != kButtonClass)
                continue;
            const std::wstring text = WithoutAccelerator(item.title);
            EXPECT_LE(measure.Extent(text) + RoomBesideText(item), measure.Pixels(item.width))
                << number << " " << std::string(text.begin(), text.end());
        }
    }
}

TEST_F(EnglishSatellite, HasRoomForEachRowOfAnOptionList) {
    const Measure measure(L"Tahoma", 8);
    for (const OptionCombo& combo : kOptionCombos) {
        const std::vector<Item> items = TemplateOf(satellite, combo.dialog).items;
        const auto item = std::ranges::find(items, combo.control, &Item::number);
        ASSERT_NE(item, items.end()) << combo.list;
        for (const unsigned number : kListedTexts.at(combo.list)) {
            const std::wstring text = StringOf(satellite, number);
            EXPECT_LE(measure.Extent(text) + RoomBesideRow(combo), measure.Pixels(item->width))
                << combo.list << " " << std::string(text.begin(), text.end());
        }
    }
}

// The template's caption stands only until the page has set its own, which comes from the string table.
TEST_F(EnglishSatellite, HasCaptionsThatBeginAsATextOfTheTable) {
    std::set<std::wstring> texts;
    for (unsigned number = 1; number <= 0xFFFF; ++number)
        texts.insert(WithoutAccelerator(StringOf(satellite, number)));
    // Those that nothing replaces.
    const std::set<std::wstring> own{L"Saved Settings", L"Preview",         L"Document and Paper",
                                     L"Layout",         L"Output",          L"Job",
                                     L"Image Quality",  L"Paper Condition", L"(52-400)"};
    for (const int number : satellite.Numbers(RT_DIALOG)) {
        for (const Item& item : TemplateOf(satellite, number).items) {
            std::wstring text = WithoutAccelerator(item.title);
            if (text.empty() || own.contains(text) || texts.contains(text))
                continue;
            if (text.ends_with(L":"))
                text.pop_back();
            if (text.size() > 3 && text.ends_with(L")") && text[text.size() - 3] == L'(')
                text.resize(text.size() - 3);
            EXPECT_TRUE(texts.contains(text)) << number << " " << std::string(text.begin(), text.end());
        }
    }
}
