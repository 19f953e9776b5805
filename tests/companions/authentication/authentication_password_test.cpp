// The stored password: it stays unless it is replaced, and nobody sees it.
#include "tests/companions/authentication/authentication_fixture.h"
#include "tests/support/main_log.h"

#include <cstring>
#include <filesystem>
#include <span>

namespace {

class StoredPassword : public AuthenticationDialogTest {
  protected:
    StoredPassword() { PutAccount("tanaka", "Geheim#7", "keiri"); }

    StoredBytes After(Steps steps) {
        steps.emplace_back(Ok);
        EXPECT_EQ(Run(std::move(steps)), 1);
        return Stored()[kPassword];
    }
    StoredBytes AfterNothingStored(Steps steps) {
        steps.emplace_back(Ok);
        EXPECT_EQ(Run(std::move(steps)), 0);
        return Stored()[kPassword];
    }
    static HWND Edit(HWND dialog) { return GetDlgItem(dialog, IDC_PASSWORD); }
    static void Type(HWND dialog, char character) {
        SendMessageA(Edit(dialog), WM_CHAR, static_cast<WPARAM>(character), 1);
    }
};

TEST_F(StoredPassword, StaysWhileItsMarksStay) {
    EXPECT_EQ(AfterNothingStored({}), Text("Geheim#7"));
    EXPECT_EQ(AfterNothingStored({[](HWND dialog) { MoveFocus(dialog, IDC_PASSWORD); },
                                  [](HWND dialog) { MoveFocus(dialog, IDC_ACCOUNT); }}),
              Text("Geheim#7"));
}

TEST_F(StoredPassword, StaysByteForByte) {
    const StoredBytes odd{REG_BINARY, std::string("\xFF\x00\x81\n%s", 6)};
    Put(kPassword, odd.type, odd.bytes);
    EXPECT_EQ(After({[](HWND dialog) { TypeInto(dialog, IDC_ACCOUNT, "other"); }}), odd);
    EXPECT_EQ(Stored()[kAccount], Text("other"));
}

// The ANSI side of the registry would end such a text.
TEST_F(StoredPassword, StaysWithoutATerminator) {
    const std::wstring name(kPassword, kPassword + std::strlen(kPassword));
    RegSetKeyValueW(HKEY_CURRENT_USER, std::filesystem::path(key).c_str(), name.c_str(), REG_SZ, "abc", 3);
    EXPECT_EQ(Run({[](HWND dialog) { TypeInto(dialog, IDC_ACCOUNT, "other"); }, Ok}), 1);
    std::array<char, 8> bytes{};
    DWORD size = bytes.size();
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, std::filesystem::path(key).c_str(), name.c_str(),
                           RRF_RT_ANY | RRF_NOEXPAND, nullptr, bytes.data(), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::string(bytes.data(), 3), "abc");
}

TEST_F(StoredPassword, ThatIsEmptyStaysAsItIs) {
    const StoredBytes empty{REG_BINARY, std::string(1, '\0')};
    Put(kPassword, empty.type, empty.bytes);
    EXPECT_EQ(AfterNothingStored({}), empty);
}

TEST_F(StoredPassword, IsReplacedByWhatIsTyped) {
    EXPECT_EQ(After({[](HWND dialog) { TypeInto(dialog, IDC_PASSWORD, "neu"); }}), Text("neu"));
}

TEST_F(StoredPassword, IsReplacedByAnEmptyOne) {
    EXPECT_EQ(After({[](HWND dialog) { TypeInto(dialog, IDC_PASSWORD, ""); }}), Text(""));
}

TEST_F(StoredPassword, HasItsMarksSelectedWhenTheFocusComes) {
    EXPECT_EQ(After({[](HWND dialog) { SetFocus(Edit(dialog)); },
                     [](HWND dialog) {
                         ExpectAtText(dialog, IDC_PASSWORD);
                         Type(dialog, 'x');
                     }}),
              Text("x"));
}

TEST_F(StoredPassword, HasItsMarksSelectedAfterAClickBetweenThem) {
    EXPECT_EQ(AfterNothingStored({[](HWND dialog) {
                                      SendMessageA(Edit(dialog), WM_LBUTTONDOWN, MK_LBUTTON,
                                                   MAKELPARAM(8, 6));
                                      SendMessageA(Edit(dialog), WM_LBUTTONUP, 0, MAKELPARAM(8, 6));
                                  },
                                  [](HWND dialog) { ExpectAtText(dialog, IDC_PASSWORD); }}),
              Text("Geheim#7"));
}

TEST_F(StoredPassword, IsReplacedEvenWhereTheMarksWereNotSelected) {
    EXPECT_EQ(After({[](HWND dialog) { MoveFocus(dialog, IDC_PASSWORD); },
                     [](HWND dialog) {
                         SendMessageA(Edit(dialog), EM_SETSEL, 3, 3);
                         Type(dialog, 'a');
                         Type(dialog, 'b');
                     }}),
              Text("ab"));
}

TEST_F(StoredPassword, IsEmptiedByABackspaceBetweenTheMarks) {
    EXPECT_EQ(After({[](HWND dialog) { MoveFocus(dialog, IDC_PASSWORD); },
                     [](HWND dialog) {
                         SendMessageA(Edit(dialog), EM_SETSEL, 3, 3);
                         Type(dialog, '\b');
                         EXPECT_EQ(GetWindowTextLengthW(Edit(dialog)), 0);
                     }}),
              Text(""));
}

TEST_F(StoredPassword, MarksDoNotComeBackByUndo) {
    EXPECT_EQ(After({[](HWND dialog) {
                  TypeInto(dialog, IDC_PASSWORD, "x");
                  SendMessageA(Edit(dialog), EM_UNDO, 0, 0);
                  TypeInto(dialog, IDC_PASSWORD, "neu");
              }}),
              Text("neu"));
}

TEST_F(StoredPassword, MayLookLikeItsMarks) {
    EXPECT_EQ(After({[](HWND dialog) { TypeInto(dialog, IDC_PASSWORD, "********"); }}), Text("********"));
}

TEST_F(StoredPassword, IsNotCheckedWhileItStays) {
    // Too long for the record's field, but read all the same.
    PutText(kPassword, std::string(200, 'p'));
    EXPECT_EQ(AfterNothingStored({}), Text(std::string(200, 'p')));
}

BOOL CALLBACK CollectText(HWND window, LPARAM texts) {
    std::string text(4096, '\0');
    text.resize(static_cast<std::size_t>(
        SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    *reinterpret_cast<std::string*>(texts) += text + "\n";
    EnumChildWindows(window, CollectText, texts);
    return TRUE;
}

TEST_F(StoredPassword, StandsInNoWindow) {
    Run({[](HWND dialog) {
             std::string texts;
             MoveFocus(dialog, IDC_PASSWORD);
             EnumThreadWindows(GetCurrentThreadId(), CollectText, reinterpret_cast<LPARAM>(&texts));
             EXPECT_NE(texts.find("tanaka"), std::string::npos);
             EXPECT_NE(texts.find("keiri"), std::string::npos);
             EXPECT_EQ(texts.find("Geheim"), std::string::npos);
         },
         Cancel});
}

// What is typed, so that the test itself never has it as a text.
constexpr int kTypedLength = 60;
constexpr wchar_t Typed(int i) {
    return static_cast<wchar_t>(L'A' + (i * 7 + 3) % 26);
}

template <typename Unit>
std::size_t CountTyped(std::span<const BYTE> memory) {
    constexpr int kEnough = 12;
    std::size_t count = 0;
    for (std::size_t at = 0; at + kEnough * sizeof(Unit) <= memory.size(); at += sizeof(Unit)) {
        const auto* const units = reinterpret_cast<const Unit*>(memory.data() + at);
        int same = 0;
        while (same < kEnough && units[same] == static_cast<Unit>(Typed(same)))
            ++same;
        count += same == kEnough ? 1 : 0;
    }
    return count;
}

// In all memory of the process that can be written.
std::size_t CopiesOfTyped() {
    std::size_t count = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const BYTE* place = nullptr; VirtualQuery(place, &region, sizeof region);
         place = static_cast<const BYTE*>(region.BaseAddress) + region.RegionSize) {
        if (region.State != MEM_COMMIT || region.Protect & (PAGE_NOACCESS | PAGE_GUARD) ||
            !(region.Protect & (PAGE_READWRITE | PAGE_EXECUTE_READWRITE | PAGE_WRITECOPY)))
            continue;
        const std::span memory(static_cast<const BYTE*>(region.BaseAddress), region.RegionSize);
        count += CountTyped<char>(memory) + CountTyped<wchar_t>(memory);
    }
    return count;
}

class TypedPassword : public StoredPassword {
  protected:
    static void TypeAll(HWND dialog) {
        for (int i = 0; i < kTypedLength; ++i)
            SendMessageW(Edit(dialog), WM_CHAR, Typed(i), 1);
    }
};

TEST_F(TypedPassword, IsNotLeftInMemory) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       TypeAll(dialog);
                       EXPECT_GT(CopiesOfTyped(), 0u);
                   },
                   Cancel}),
              0);
    EXPECT_EQ(CopiesOfTyped(), 0u);
    EXPECT_EQ(Run({TypeAll, Ok}), 1);
    RegDeleteTreeA(HKEY_CURRENT_USER, parent.c_str());
    EXPECT_EQ(CopiesOfTyped(), 0u);
}

TEST_F(TypedPassword, IsNotLeftInMemoryWhereItWasReplaced) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       TypeAll(dialog);
                       SendMessageW(Edit(dialog), EM_SETSEL, 0, -1);
                       Type(dialog, 'z');
                       EXPECT_GT(CopiesOfTyped(), 0u);
                   },
                   Cancel}),
              0);
    EXPECT_EQ(CopiesOfTyped(), 0u);
}

class LoggedPassword : public StoredPassword {
  protected:
    void ExpectNoSecrets() {
        const std::vector<std::string> messages = log.Messages();
        EXPECT_FALSE(messages.empty());
        for (const std::string& message : messages) {
            for (const char* secret : {"Geheim", "Neues", "tanaka", "suzuki", "keiri"})
                EXPECT_EQ(message.find(secret), std::string::npos) << message;
        }
    }
    static void EnterAll(HWND dialog) {
        ClickButton(dialog, IDC_MODE_ON);
        TypeInto(dialog, IDC_USER_ID, "suzuki");
        TypeInto(dialog, IDC_PASSWORD, "Neues#8");
    }

    MainLog log;
};

TEST_F(LoggedPassword, StandsInNoLogLineOfAChange) {
    EXPECT_EQ(Run({EnterAll, Ok}), 1);
    EXPECT_EQ(Stored()[kPassword], Text("Neues#8"));
    ExpectNoSecrets();
}

TEST_F(LoggedPassword, StandsInNoLogLineOfAFailure) {
    EXPECT_EQ(Run({[this](HWND dialog) {
                       EnterAll(dialog);
                       printer.Delete();
                       BoxAfterOk(dialog);
                   },
                   Cancel}),
              0);
    EXPECT_EQ(Stored()[kPassword], Text("Geheim#7"));
    ExpectNoSecrets();
}

} // namespace
