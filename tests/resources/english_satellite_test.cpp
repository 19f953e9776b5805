// ZRPDS31JENU.dll beside ZRPDS31J.dll: the same resources, but for the language of the texts.
#include "dialog_template.h"
#include "resource_module.h"

#include "resources/resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>

namespace {

bool IsAscii(const std::wstring& text) {
    return std::ranges::all_of(text, [](wchar_t c) { return c < 0x80; });
}

class EnglishSatellite : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(module.Get());
        ASSERT_TRUE(satellite.Get());
    }

    void ExpectSameBytes(LPCSTR type) {
        const std::set<int> numbers = module.Numbers(type);
        ASSERT_FALSE(numbers.empty());
        EXPECT_EQ(satellite.Numbers(type), numbers);
        for (const int number : numbers)
            EXPECT_TRUE(satellite.Bytes(type, number) == module.Bytes(type, number)) << number;
    }

    ResourceModule module{"ZRPDS31J.dll"};
    ResourceModule satellite{"ZRPDS31JENU.dll"};
};

} // namespace

TEST_F(EnglishSatellite, HasTheTypesOfResourcesThatTheModuleHas) {
    EXPECT_EQ(satellite.Types(), module.Types());
}

TEST_F(EnglishSatellite, HasNoCodeToRun) {
    const ResourceModule image("ZRPDS31JENU.dll");
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
        const std::wstring own = module.String(number);
        const std::wstring english = satellite.String(number);
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
            EXPECT_EQ(satellite.Languages(type, number), std::set<WORD>{0x0409}) << number;
    }
    EXPECT_EQ(satellite.String(IDS_STANDARD_PAGE_TITLE), L"Basic");
    EXPECT_EQ(satellite.String(IDS_ADVANCED_PAGE_TITLE), L"Detailed Settings");
    EXPECT_EQ(satellite.String(IDS_DEVICE_PAGE_TITLE), L"Initial Settings");
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
        const DialogTemplate own = TemplateOf(module, number);
        const DialogTemplate english = TemplateOf(satellite, number);
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
        const DialogTemplate dialog = TemplateOf(satellite, number);
        EXPECT_EQ(dialog.font, L"MS Shell Dlg") << number;
        EXPECT_EQ(dialog.fontSize, 8) << number;
        EXPECT_TRUE(IsAscii(dialog.dialog.title)) << number;
        for (const TemplateItem& item : dialog.items)
            EXPECT_TRUE(IsAscii(item.title)) << number;
    }
}

// The template's caption stands only until the page has set its own, which comes from the string table.
TEST_F(EnglishSatellite, HasCaptionsThatBeginAsATextOfTheTable) {
    std::set<std::wstring> texts;
    for (unsigned number = 1; number <= 0xFFFF; ++number)
        texts.insert(WithoutAccelerator(satellite.String(number)));
    // Those that nothing replaces.
    const std::set<std::wstring> own{L"Saved Settings", L"Preview",         L"Document and Paper",
                                     L"Layout",         L"Output",          L"Job",
                                     L"Image Quality",  L"Paper Condition", L"(52-400)"};
    for (const int number : satellite.Numbers(RT_DIALOG)) {
        for (const TemplateItem& item : TemplateOf(satellite, number).items) {
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
