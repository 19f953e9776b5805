// What the dialog logs.
#include "tests/pages/custom_page_dialog_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/message_box.h"

#include <algorithm>

namespace {

using Lines = std::vector<std::string>;

class CustomPageDialogLog : public CustomPageDialog {
  protected:
    static void SetUpTestSuite() { log = std::make_unique<MainLog>(); }
    static void TearDownTestSuite() { log.reset(); }
    CustomPageDialogLog() { log->Forget(); }

    // What functions have logged behind their names, as far as it begins so.
    static Lines Logged(const std::string& beginning) {
        Lines texts;
        for (const std::string& line : log->Messages()) {
            const std::size_t name = line.find("() " + beginning);
            if (name != std::string::npos)
                texts.push_back(line.substr(name + 3));
        }
        return texts;
    }
    static bool HasLogged(const std::string& text) {
        const Lines texts = Logged(text);
        return std::ranges::find(texts, text) != texts.end();
    }

    inline static std::unique_ptr<MainLog> log;
};

TEST_F(CustomPageDialogLog, TellsEachLengthWithTheDefaultBesideIt) {
    ExportedFunc_SetDefault(kCustomPaperWidth, 182000);
    ExportedFunc_SetDefault(kCustomPaperHeight, 257000);
    Look([](HWND) {});
    EXPECT_TRUE(HasLogged("210000 default=182000"));
    EXPECT_TRUE(HasLogged("297000 default=257000"));
}

TEST_F(CustomPageDialogLog, TellsWhichLimitALengthIsBeyond) {
    struct Row {
        int edit;
        const char* typed;
        const char* logged;
    };
    for (const Row& row : {Row{kWidth, "88.9", "Mode1"}, Row{kWidth, "320.1", "Mode2"},
                           Row{kHeight, "97.9", "Mode3"}, Row{kHeight, "1200.1", "Mode4"}}) {
        log->Forget();
        Left(row.edit, row.typed);
        EXPECT_EQ(Logged("Mode"), Lines{row.logged}) << row.typed;
    }
}

TEST_F(CustomPageDialogLog, TellsOfNoLimitForALengthWithinThem) {
    Left(kWidth, "89");
    Left(kHeight, "1200");
    EXPECT_EQ(Logged("Mode"), Lines{});
}

TEST_F(CustomPageDialogLog, TellsOfBothLengthsWhenOkFindsBothBeyondTheirLimits) {
    SetDocument(1000, 2000000);
    auto box = AnswerNextMessageBox(IDCANCEL);
    Look([](HWND dialog) {
        SendMessageA(dialog, WM_COMMAND, kOk, 0);
        EXPECT_EQ(Logged("Mode"), (Lines{"Mode1", "Mode4"}));
    });
    box.get();
}

TEST_F(CustomPageDialogLog, TellsWhetherTheShortEdgeGoesFirst) {
    Look([](HWND dialog) {
        EXPECT_EQ(Logged("bShortEdgeFeed"), Lines{"bShortEdgeFeed=1"});
        SendDlgItemMessageA(dialog, kDirection, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kDirection, CBN_SELCHANGE), 0);
        EXPECT_EQ(Logged("bShortEdgeFeed"), (Lines{"bShortEdgeFeed=1", "bShortEdgeFeed=0"}));
    });
}

} // namespace
