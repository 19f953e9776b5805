// The dialog that asks for a new favourite's name and comment.
#include "pages/SavePresetDlg.h"

#include "tests/pages/dialog_text.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/message_box.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kName = 1226;
constexpr int kComment = 1227;

constexpr char kLimits[] = "名前は1から27バイト(半角27/全角13文字)で指定してください。";
constexpr char kNotUsable[] = "次の文字または名前は使用できません。\n標準";
constexpr char kCommentLimit[] = "コメントは255バイト(半角255/全角127文字)以内で指定してください。";

void Cancel(HWND dialog) {
    ClickButton(dialog, IDCANCEL);
}
void Save(HWND dialog) {
    ClickButton(dialog, IDOK);
}

class SavePresetDialog : public PageTest {
  protected:
    void Offer(const std::string& offeredName, const std::string& offeredComment) {
        name.fill('\0');
        comment.fill('\0');
        offeredName.copy(name.data(), name.size() - 1);
        offeredComment.copy(comment.data(), comment.size() - 1);
    }
    INT_PTR Run(std::vector<ModalDialog::Step> steps) {
        const ModalDialog user(std::move(steps));
        return DoSavePresetDialog(Sheet(), name, comment);
    }
    // One step, and Cancel.
    void Look(ModalDialog::Step step) { EXPECT_EQ(Run({std::move(step), Cancel}), IDCANCEL); }

    // The box that Save brings; `after` sees the dialog behind it once the box is gone.
    MessageBoxSeen Refused(
        const std::string& typedName, const std::string& typedComment,
        ModalDialog::Step after = [](HWND) {}) {
        MessageBoxSeen seen;
        Look([&](HWND dialog) {
            SetText(dialog, kName, typedName);
            SetText(dialog, kComment, typedComment);
            auto box = AnswerNextMessageBox();
            Save(dialog);
            seen = box.get();
            EXPECT_EQ(seen.owner, dialog);
            after(dialog);
        });
        return seen;
    }
    INT_PTR SaveAs(const std::string& typedName, const std::string& typedComment) {
        return Run({[&](HWND dialog) {
            SetText(dialog, kName, typedName);
            SetText(dialog, kComment, typedComment);
            Save(dialog);
        }});
    }

    std::array<char, 260> name{};
    std::array<char, 256> comment{};
};

TEST_F(SavePresetDialog, HasItsTitleAndCaptions) {
    Look([](HWND dialog) {
        EXPECT_EQ(WindowText(dialog), "お気に入りの保存");
        EXPECT_EQ(CaptionOf(dialog, 1401), "名前:");
        EXPECT_EQ(CaptionOf(dialog, 1402), "コメント:");
        EXPECT_EQ(CaptionOf(dialog, 1), "保存");
        EXPECT_EQ(CaptionOf(dialog, 2), "キャンセル");
    });
}

TEST_F(SavePresetDialog, StandsAboveItsOwner) {
    Look([this](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), Sheet());
        EXPECT_FALSE(IsWindowEnabled(Sheet()));
    });
    EXPECT_TRUE(IsWindowEnabled(Sheet()));
}

TEST_F(SavePresetDialog, OffersTheNameAndTheCommentOfTheCaller) {
    Offer("会議の資料", "両面、ホチキス");
    Look([](HWND dialog) {
        EXPECT_EQ(CaptionOf(dialog, kName), "会議の資料");
        EXPECT_EQ(CaptionOf(dialog, kComment), "両面、ホチキス");
    });
}

TEST_F(SavePresetDialog, OffersNoNameForTheStandardSettings) {
    Offer("標準", "出荷時の設定");
    Look([](HWND dialog) {
        EXPECT_EQ(CaptionOf(dialog, kName), "");
        EXPECT_EQ(CaptionOf(dialog, kComment), "出荷時の設定");
    });
}

TEST_F(SavePresetDialog, OffersANameThatOnlyBeginsLikeThatOfTheStandardSettings) {
    Offer("標準2", "");
    Look([](HWND dialog) { EXPECT_EQ(CaptionOf(dialog, kName), "標準2"); });
}

TEST_F(SavePresetDialog, TakesBuffersWithoutAnEnd) {
    name.fill('n');
    comment.fill('c');
    Look([](HWND dialog) {
        EXPECT_EQ(CaptionOf(dialog, kName), std::string(260, 'n'));
        EXPECT_EQ(CaptionOf(dialog, kComment), std::string(256, 'c'));
    });
}

TEST_F(SavePresetDialog, BeginsInTheNameWithAllOfItSelected) {
    Offer("会議", "");
    Look([](HWND dialog) {
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kName));
        EXPECT_EQ(SelectionOf(dialog, kName), Selection(0, 2));
    });
}

TEST_F(SavePresetDialog, IsReachedByTabInTheOrderOfReading) {
    Look([](HWND dialog) { EXPECT_EQ(TabOrder(dialog), (std::vector{1226, 1227, 1, 2})); });
}

TEST_F(SavePresetDialog, GivesWhatWasTyped) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kName, "monthly");
                  TypeInto(dialog, kComment, "A4, both sides");
                  Save(dialog);
              }}),
              IDOK);
    EXPECT_STREQ(name.data(), "monthly");
    EXPECT_STREQ(comment.data(), "A4, both sides");
}

TEST_F(SavePresetDialog, GivesFullWidthText) {
    EXPECT_EQ(SaveAs("表紙つき①", "ソート、十部"), IDOK);
    EXPECT_STREQ(name.data(), "表紙つき①");
    EXPECT_STREQ(comment.data(), "ソート、十部");
}

TEST_F(SavePresetDialog, TakesOnlyAnEntryThatIsNotCancelled) {
    for (const ModalDialog::Step& end :
         {ModalDialog::Step(Cancel), ModalDialog::Step([](HWND) { PressKey(VK_ESCAPE); }),
          ModalDialog::Step([](HWND dialog) { PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); })}) {
        Offer("会議", "両面");
        EXPECT_EQ(Run({[](HWND dialog) {
                           SetText(dialog, kName, "other");
                           SetText(dialog, kComment, "text");
                       },
                       end}),
                  IDCANCEL);
        EXPECT_STREQ(name.data(), "会議");
        EXPECT_STREQ(comment.data(), "両面");
    }
}

TEST_F(SavePresetDialog, IsSavedByEnterInEitherEdit) {
    for (const int edit : {kName, kComment}) {
        EXPECT_EQ(Run({[edit](HWND dialog) {
                           SetText(dialog, kName, "会議");
                           MoveFocus(dialog, edit);
                       },
                       [](HWND) { PressKey(VK_RETURN); }}),
                  IDOK);
        EXPECT_STREQ(name.data(), "会議");
    }
}

TEST_F(SavePresetDialog, IsCancelledByEnterOnTheCancelButton) {
    EXPECT_EQ(Run({[](HWND dialog) { MoveFocus(dialog, IDCANCEL); }, [](HWND) { PressKey(VK_RETURN); }}),
              IDCANCEL);
}

TEST_F(SavePresetDialog, TakesNoOtherNotificationForACommand) {
    Look([](HWND dialog) {
        for (const int code : {1, 2, 5, 256, 512, 768, 1024, 0xFFFF})
            for (const int id : {1, 2})
                SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, code), 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kName, 0), 0);
    });
}

TEST_F(SavePresetDialog, NeedsNoSession) {
    EXPECT_EQ(Run({[this](HWND dialog) {
                  EndSession();
                  SetText(dialog, kName, "会議");
                  Save(dialog);
              }}),
              IDOK);
    EXPECT_STREQ(name.data(), "会議");
}

TEST_F(SavePresetDialog, TakesANameOf27BytesOrOf13FullWidthCharacters) {
    for (const std::string& typed : {std::string("n"), std::string(27, 'n'), Repeated(13, "会"),
                                     Repeated(13, "会") + "a", std::string(27, '\xB1')}) {
        EXPECT_EQ(SaveAs(typed, ""), IDOK) << typed;
        EXPECT_STREQ(name.data(), typed.c_str());
    }
}

TEST_F(SavePresetDialog, TakesADoubleByteCharacterWhoseSecondByteIsThatOfABackslash) {
    for (const std::string typed : {"表", "ソート", "能力", "予定表\x81\x5C", "貼り付け"}) {
        EXPECT_EQ(SaveAs(typed, ""), IDOK) << typed;
        EXPECT_STREQ(name.data(), typed.c_str());
    }
}

// Blanks around a name are part of it.
TEST_F(SavePresetDialog, TakesANameAsItStands) {
    for (const std::string typed : {" a ", "　会議　", "標準 ", "a.b", "'&%$#"}) {
        EXPECT_EQ(SaveAs(typed, ""), IDOK) << typed;
        EXPECT_STREQ(name.data(), typed.c_str());
    }
}

TEST_F(SavePresetDialog, RefusesANameOutsideTheLimits) {
    for (const std::string& typed : {std::string(), std::string(28, 'n'), Repeated(14, "会"),
                                     Repeated(13, "会") + "ab", std::string(2000, 'n')}) {
        const MessageBoxSeen box = Refused(typed, "");
        EXPECT_EQ(box.text, kLimits) << typed;
        EXPECT_EQ(box.caption, "警告");
        EXPECT_FALSE(box.canCancel);
    }
}

TEST_F(SavePresetDialog, RefusesEachForbiddenCharacter) {
    for (const char c : std::string("\\/:*?\"<>|"))
        EXPECT_EQ(Refused("会議" + std::string(1, c) + "a", "").text, kLimits) << c;
}

TEST_F(SavePresetDialog, RefusesANameOfBlanksAloneFullWidthOnesIncluded) {
    for (const std::string typed : {" ", "   ", "　", "　 　"})
        EXPECT_EQ(Refused(typed, "").text, kLimits) << "\"" << typed << "\"";
}

TEST_F(SavePresetDialog, SelectsTheWholeRefusedName) {
    Refused(std::string(30, 'n'), "", [](HWND dialog) {
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kName));
        EXPECT_EQ(SelectionOf(dialog, kName), Selection(0, 30));
        EXPECT_EQ(CaptionOf(dialog, kName), std::string(30, 'n'));
    });
}

TEST_F(SavePresetDialog, RefusesTheNameOfTheStandardSettings) {
    const MessageBoxSeen box = Refused("標準", "");
    EXPECT_EQ(box.text, kNotUsable);
    EXPECT_EQ(box.caption, "警告");
}

TEST_F(SavePresetDialog, PutsTheCaretBeforeTheNameOfTheStandardSettings) {
    Refused("標準", "", [](HWND dialog) {
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kName));
        EXPECT_EQ(SelectionOf(dialog, kName), Selection(0, 0));
        EXPECT_EQ(CaptionOf(dialog, kName), "標準");
    });
}

TEST_F(SavePresetDialog, TakesACommentOf255Bytes) {
    for (const std::string& typed : {std::string(), std::string(255, 'c'), Repeated(127, "会"),
                                     Repeated(127, "会") + "c", std::string("\\/:*?\"<>| 標準")}) {
        EXPECT_EQ(SaveAs("会議", typed), IDOK) << typed;
        EXPECT_STREQ(comment.data(), typed.c_str());
    }
}

TEST_F(SavePresetDialog, RefusesACommentOf256BytesAndSelectsIt) {
    for (const std::string& typed :
         {std::string(256, 'c'), Repeated(128, "会"), std::string(511, 'c'), std::string(5000, 'c')}) {
        const MessageBoxSeen box = Refused("会議", typed, [&](HWND dialog) {
            EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kComment));
            EXPECT_EQ(SelectionOf(dialog, kComment), Selection(0, CharactersOf(typed)));
        });
        EXPECT_EQ(box.text, kCommentLimit);
        EXPECT_EQ(box.caption, "警告");
    }
}

TEST_F(SavePresetDialog, SpeaksOfTheNameBeforeTheComment) {
    EXPECT_EQ(Refused("", std::string(256, 'c')).text, kLimits);
}

// The name is copied before the comment is looked at.
TEST_F(SavePresetDialog, KeepsTheNameOfARefusedCommentThoughItIsCancelled) {
    Offer("会議", "両面");
    EXPECT_EQ(Run({[](HWND dialog) {
                       SetText(dialog, kName, "年次");
                       SetText(dialog, kComment, std::string(256, 'c'));
                       auto box = AnswerNextMessageBox();
                       Save(dialog);
                       EXPECT_EQ(box.get().text, kCommentLimit);
                   },
                   Cancel}),
              IDCANCEL);
    EXPECT_STREQ(name.data(), "年次");
    EXPECT_STREQ(comment.data(), "両面");
}

TEST_F(SavePresetDialog, IsTakenOnceWhatWasRefusedIsRight) {
    EXPECT_EQ(Run({[](HWND dialog) {
                       auto box = AnswerNextMessageBox();
                       Save(dialog);
                       EXPECT_EQ(box.get().text, kLimits);
                   },
                   [](HWND dialog) { TypeInto(dialog, kName, "right"); }, Save}),
              IDOK);
    EXPECT_STREQ(name.data(), "right");
}

} // namespace
