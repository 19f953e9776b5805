#include "companions/common/messages.h"

#include "Common/strings.h"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr const char* kNotStored = "設定を保存できませんでした。保存されている設定は元のままです。\n";

class CompanionMessage : public testing::Test {
  protected:
    CompanionMessage() : m_module(LoadLibraryA("AuthenticationManager.dll")) {
        EXPECT_NE(m_module, nullptr);
        SetStringModule(m_module);
    }
    ~CompanionMessage() override {
        SetStringModule(nullptr);
        FreeLibrary(m_module);
    }

  private:
    HMODULE m_module;
};

TEST_F(CompanionMessage, TellsThatThePermissionIsMissing) {
    EXPECT_EQ(NotStoredText(ERROR_ACCESS_DENIED),
              std::string(kNotStored) + "この設定を変更する権限がありません。");
}

TEST_F(CompanionMessage, TellsThatThePrinterHasGone) {
    for (const DWORD status : {ERROR_INVALID_HANDLE, ERROR_INVALID_PRINTER_NAME, ERROR_PRINTER_DELETED})
        EXPECT_EQ(NotStoredText(status), std::string(kNotStored) + "プリンターが見つかりません。") << status;
}

TEST_F(CompanionMessage, TellsTheNumberAndTheSystemsSentenceOfAnotherFailure) {
    std::array<char, 512> sentence{};
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                   nullptr, RPC_S_SERVER_UNAVAILABLE, 0, sentence.data(), sentence.size(), nullptr);
    std::string expected = sentence.data();
    expected.resize(expected.find_last_not_of(' ') + 1);
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(NotStoredText(1722), std::string(kNotStored) + "エラー コード: 1722\n" + expected);
}

TEST_F(CompanionMessage, TellsTheNumberAloneWhereTheSystemHasNoSentence) {
    EXPECT_EQ(NotStoredText(0x2FFFFFFF), std::string(kNotStored) + "エラー コード: 805306367");
}

TEST_F(CompanionMessage, TellsALimitInBothWidthsOfCharacters) {
    EXPECT_EQ(WithByteLimit("長すぎます。", 65),
              "長すぎます。\n半角65文字(全角32文字)以内で入力してください。");
}

TEST(MessageNumber, TakesThePlaceOfItsMark) {
    EXPECT_EQ(WithNumber("a%1b", "%1", 7), "a7b");
    EXPECT_EQ(WithNumber("a", "%1", 7), "a");
}

} // namespace
