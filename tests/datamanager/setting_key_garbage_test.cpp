// A data setting key with whatever another process may have left there.
#include "tests/datamanager/setting_key_fixture.h"

#include <array>

namespace {

using SettingKeyGarbage = SettingKeyTest;

std::string Dword(std::uint32_t value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

TEST_F(SettingKeyGarbage, IsReadAsNeverSetWhereTypeOrSizeIsWrong) {
    ExportedFunc_SetCurrent(104, 1);
    ExportedFunc_SetBleedSize(5);
    ExportedFunc_SetJobName("job");
    Put("Current", "DuplexMode", REG_SZ, "text");
    Put("Current", "PageSize", REG_BINARY, std::string(3, 'x'));
    Put("Values", "BleedSize", REG_QWORD, "12345678");
    Put("Values", "JobName", REG_DWORD, Dword(7));
    Put("Values", "FormName", REG_MULTI_SZ, std::string("a\0b\0\0", 5));
    Put("Values", "AutoJobStartSpecifiedDayAndTimeForDriver", REG_DWORD, Dword(7));
    HandOver();
    EXPECT_EQ(Current(104), 0u);
    EXPECT_EQ(Current(0), 0u);
    std::uint32_t bleed = 99;
    ExportedFunc_GetBleedSize(&bleed);
    EXPECT_EQ(bleed, 0u);
    EXPECT_EQ(JobName(), "");
    std::array<char, 100> form{};
    ExportedFunc_GetFormName(form.data());
    EXPECT_STREQ(form.data(), "");
    std::uint64_t time = 99;
    ExportedFunc_GetAutoJobStartSpecifiedDayAndTimeForDriver(&time);
    EXPECT_EQ(time, 0u);
}

TEST_F(SettingKeyGarbage, CutsALongTextToItsField) {
    Put("Values", "FormName", REG_SZ, std::string(60'000, 'f'));
    HandOver();
    std::array<char, 120> form;
    form.fill('#');
    ExportedFunc_GetFormName(form.data());
    EXPECT_EQ(std::string(form.data()), std::string(99, 'f'));
    EXPECT_EQ(form[100], '#');
}

TEST_F(SettingKeyGarbage, TakesATextOfMegabytesForNone) {
    Put("Values", "FormName", REG_SZ, std::string(3'000'000, 'f'));
    Put("Values", "JobName", REG_SZ, "still read");
    HandOver();
    std::array<char, 100> form{};
    ExportedFunc_GetFormName(form.data());
    EXPECT_STREQ(form.data(), "");
    EXPECT_EQ(JobName(), "still read");
}

TEST_F(SettingKeyGarbage, ReadsATextWithoutATerminator) {
    const std::wstring text = L"no end";
    EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER,
                              std::wstring(key.begin(), key.end()).append(L"\\Values").c_str(), L"JobName",
                              REG_SZ, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t))),
              ERROR_SUCCESS);
    HandOver();
    EXPECT_EQ(JobName(), "no end");
}

TEST_F(SettingKeyGarbage, ReadsATextOfAnOddNumberOfBytes) {
    EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER,
                              std::wstring(key.begin(), key.end()).append(L"\\Values").c_str(), L"JobName",
                              REG_SZ, "a\0b\0c", 5),
              ERROR_SUCCESS);
    HandOver();
    EXPECT_EQ(JobName().substr(0, 2), "ab");
}

TEST_F(SettingKeyGarbage, FindsItsValuesAmongThousandsOfOthers) {
    HKEY values = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, (key + "\\Values").c_str(), 0, KEY_WRITE, &values),
              ERROR_SUCCESS);
    for (DWORD i = 0; i < 2000; ++i)
        RegSetValueExA(values, ("Unknown" + std::to_string(i)).c_str(), 0, i % 12,
                       reinterpret_cast<const BYTE*>(&i), sizeof i);
    RegCloseKey(values);
    Put("Values", std::string(10'000, 'n').c_str(), REG_DWORD, Dword(7));
    Put("Values", "", REG_DWORD, Dword(7));
    Put("Values", "ZZZ", REG_DWORD, Dword(7));
    Put("Values", "JobName", REG_SZ, "found");
    Put("Values", "BleedSize", REG_DWORD, Dword(8));
    HandOver();
    EXPECT_EQ(JobName(), "found");
    std::uint32_t bleed = 0;
    ExportedFunc_GetBleedSize(&bleed);
    EXPECT_EQ(bleed, 8u);
}

TEST_F(SettingKeyGarbage, OfMoreValuesThanTheStoreReadsLeavesItsValuesUntilItIsRemoved) {
    ExportedFunc_SetCurrent(104, 1);
    HKEY values = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, (key + "\\Values").c_str(), 0, KEY_WRITE, &values),
              ERROR_SUCCESS);
    const auto nameOf = [](int i) { return "A" + std::to_string(100'000 + i); };
    for (int i = 0; i < 16'385; ++i)
        RegSetValueExA(values, nameOf(i).c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&i), sizeof i);
    ExportedFunc_SetJobName("job");
    Put("Current", "DuplexMode", REG_DWORD, Dword(2));
    HandOver();
    EXPECT_EQ(JobName(), "job");
    EXPECT_EQ(Current(104), 1u);
    EXPECT_EQ(KeyInUse(), key);

    for (int i = 0; i < 16'385; ++i)
        RegDeleteValueA(values, nameOf(i).c_str());
    RegCloseKey(values);
    Sleep(100); // a failed reading is not repeated for 50 milliseconds
    EXPECT_EQ(Current(104), 2u);
    EXPECT_EQ(JobName(), "job");
}

TEST_F(SettingKeyGarbage, InTheKeyItselfOnlyMakesItReadAgain) {
    ExportedFunc_SetCurrent(104, 1);
    EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), "Generation", REG_SZ, "x", 2), ERROR_SUCCESS);
    EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), "Noise", REG_BINARY, "xyz", 3), ERROR_SUCCESS);
    Sleep(2);
    EXPECT_EQ(Current(104), 1u);
    EXPECT_EQ(KeyInUse(), key);
}

TEST_F(SettingKeyGarbage, DoesNotStopTheStoreWhenASubkeyIsRemoved) {
    ExportedFunc_SetCurrent(104, 1);
    EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, (key + "\\Values").c_str()), ERROR_SUCCESS);
    HandOver();
    EXPECT_EQ(Current(104), 1u);
    ExportedFunc_SetJobName("job");
    EXPECT_EQ(JobName(), "job");
}

} // namespace
