// The dialog that names a job, and the name on the standard page.
#include "tests/pages/job_name_fixture.h"
#include "tests/pages/standard_page_driver.h"

namespace {

using Ids = std::vector<int>;

constexpr char kNoName[] = "ジョブ名が入力されていません。";

class JobNameDialog : public JobNameTest {};

TEST_F(JobNameDialog, HasItsTitleAndCaptions) {
    Look([](HWND dialog) {
        EXPECT_EQ(WindowText(dialog), "ジョブ名の指定");
        EXPECT_EQ(CaptionOf(dialog, 1221), "自動取得する(&A)");
        EXPECT_EQ(CaptionOf(dialog, 1222), "ジョブ名を入力する(&E)");
        EXPECT_EQ(CaptionOf(dialog, 1225), "ジョブ名");
        EXPECT_EQ(CaptionOf(dialog, 1), "OK");
        EXPECT_EQ(CaptionOf(dialog, 2), "キャンセル");
    });
}

TEST_F(JobNameDialog, StandsAboveItsOwner) {
    Look([this](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), Sheet());
        EXPECT_FALSE(IsWindowEnabled(Sheet()));
    });
    EXPECT_TRUE(IsWindowEnabled(Sheet()));
}

TEST_F(JobNameDialog, ShowsAnEnteredName) {
    Look([](HWND dialog) {
        EXPECT_EQ(Checked(dialog), Ids{kEntered});
        EXPECT_TRUE(CanType(dialog));
        EXPECT_EQ(Shown(dialog), "報告");
    });
}

TEST_F(JobNameDialog, ShowsTheNameButTakesNoneWhereItIsFormedAutomatically) {
    StoreName(0, "報告");
    Look([](HWND dialog) {
        EXPECT_EQ(Checked(dialog), Ids{kAutomatic});
        EXPECT_FALSE(CanType(dialog));
        EXPECT_EQ(Shown(dialog), "報告");
    });
}

TEST_F(JobNameDialog, EnablesTheEditWithTheButtonOfAnEnteredName) {
    Look([](HWND dialog) {
        ClickButton(dialog, kAutomatic);
        EXPECT_EQ(Checked(dialog), Ids{kAutomatic});
        EXPECT_FALSE(CanType(dialog));
        ClickButton(dialog, kEntered);
        EXPECT_EQ(Checked(dialog), Ids{kEntered});
        EXPECT_TRUE(CanType(dialog));
    });
}

TEST_F(JobNameDialog, IsReachedByTabInTheOrderOfReading) {
    Look([](HWND dialog) {
        EXPECT_EQ(TabOrder(dialog), (Ids{1222, 1224, 1, 2}));
        ClickButton(dialog, kAutomatic);
        EXPECT_EQ(TabOrder(dialog), (Ids{1221, 1, 2}));
    });
}

TEST_F(JobNameDialog, OpensWithTheFocusOnTheCheckedButton) {
    for (const std::uint32_t choice : {0u, 1u}) {
        StoreName(choice, "報告");
        Look([choice](HWND dialog) {
            const int radio = choice == 0 ? kAutomatic : kEntered;
            EXPECT_EQ(GetFocus(), GetDlgItem(dialog, radio));
            EXPECT_EQ(Checked(dialog), Ids{radio});
        });
    }
}

TEST_F(JobNameDialog, GoesFromButtonToButtonByArrow) {
    Run({[](HWND) { PressKey(VK_UP); },
         [](HWND dialog) {
             EXPECT_EQ(Checked(dialog), Ids{kAutomatic});
             EXPECT_FALSE(CanType(dialog));
             PressKey(VK_DOWN);
         },
         [](HWND dialog) {
             EXPECT_EQ(Checked(dialog), Ids{kEntered});
             EXPECT_TRUE(CanType(dialog));
             Cancel(dialog);
         }});
}

TEST_F(JobNameDialog, GoesFromButtonToButtonByAccelerator) {
    const auto press = [](char letter) { PostMessageA(GetFocus(), WM_SYSCHAR, letter, 1 << 29); };
    Run({[&](HWND) { press('a'); },
         [&](HWND dialog) {
             EXPECT_EQ(Checked(dialog), Ids{kAutomatic});
             EXPECT_FALSE(CanType(dialog));
             press('e');
         },
         [](HWND dialog) {
             EXPECT_EQ(Checked(dialog), Ids{kEntered});
             EXPECT_TRUE(CanType(dialog));
             Cancel(dialog);
         }});
}

TEST_F(JobNameDialog, StoresAnEnteredName) {
    StoreName(0, "");
    EXPECT_EQ(Run({[](HWND dialog) {
                  ClickButton(dialog, kEntered);
                  TypeInto(dialog, kEdit, "monthly report");
                  Ok(dialog);
              }}),
              IDOK);
    EXPECT_EQ(StoredChoice(), 1u);
    EXPECT_EQ(StoredName(), "monthly report");
}

TEST_F(JobNameDialog, StoresFullWidthText) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  SetText(dialog, kEdit, "表紙とソート①　能");
                  Ok(dialog);
              }}),
              IDOK);
    EXPECT_EQ(StoredName(), "表紙とソート①　能");
}

// A name is not checked like a favourite's.
TEST_F(JobNameDialog, StoresAnyCharacters) {
    for (const std::string name : {" ", "　", "\\/:*?\"<>|", "標準", "100%s"}) {
        Run({[&](HWND dialog) {
            SetText(dialog, kEdit, name);
            Ok(dialog);
        }});
        EXPECT_EQ(StoredName(), name);
    }
}

TEST_F(JobNameDialog, KeepsTheNameWhereItIsToBeFormedAutomatically) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  SetText(dialog, kEdit, "other");
                  ClickButton(dialog, kAutomatic);
                  Ok(dialog);
              }}),
              IDOK);
    EXPECT_EQ(StoredChoice(), 0u);
    EXPECT_EQ(StoredName(), "報告");
}

TEST_F(JobNameDialog, NeedsNoNameWhereItIsFormedAutomatically) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  SetText(dialog, kEdit, "");
                  ClickButton(dialog, kAutomatic);
                  Ok(dialog);
              }}),
              IDOK);
}

TEST_F(JobNameDialog, StoresNothingWhenItIsCancelled) {
    for (const ModalDialog::Step& end :
         {ModalDialog::Step(Cancel), ModalDialog::Step([](HWND) { PressKey(VK_ESCAPE); }),
          ModalDialog::Step([](HWND dialog) { PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); })}) {
        StoreName(1, "報告");
        EXPECT_EQ(Run({[](HWND dialog) {
                           SetText(dialog, kEdit, "other");
                           ClickButton(dialog, kAutomatic);
                       },
                       end}),
                  IDCANCEL);
        EXPECT_EQ(StoredChoice(), 1u);
        EXPECT_EQ(StoredName(), "報告");
    }
}

TEST_F(JobNameDialog, IsTakenByEnter) {
    EXPECT_EQ(
        Run({[](HWND dialog) { TypeInto(dialog, kEdit, "by enter"); }, [](HWND) { PressKey(VK_RETURN); }}),
        IDOK);
    EXPECT_EQ(StoredName(), "by enter");
}

TEST_F(JobNameDialog, AsksForANameBeforeItCloses) {
    Look([](HWND dialog) {
        SetText(dialog, kEdit, "");
        auto box = AnswerNextMessageBox();
        Ok(dialog);
        const MessageBoxSeen seen = box.get();
        EXPECT_EQ(seen.text, kNoName);
        EXPECT_EQ(seen.caption, "警告");
        EXPECT_EQ(seen.owner, dialog);
        EXPECT_FALSE(seen.canCancel);
    });
    EXPECT_EQ(StoredName(), "報告");
}

// The choice goes to the store before the name is looked at, and stays there even if the dialog is cancelled.
TEST_F(JobNameDialog, KeepsTheChoiceOfARefusedName) {
    StoreName(0, "");
    Look([](HWND dialog) {
        ClickButton(dialog, kEntered);
        auto box = AnswerNextMessageBox();
        Ok(dialog);
        EXPECT_EQ(box.get().text, kNoName);
    });
    EXPECT_EQ(StoredChoice(), 1u);
}

TEST_F(JobNameDialog, IsTakenOnceANameWasEntered) {
    StoreName(1, "");
    EXPECT_EQ(Run({[](HWND dialog) {
                       auto box = AnswerNextMessageBox();
                       Ok(dialog);
                       EXPECT_EQ(box.get().text, kNoName);
                   },
                   [](HWND dialog) { TypeInto(dialog, kEdit, "now"); }, Ok}),
              IDOK);
    EXPECT_EQ(StoredName(), "now");
}

TEST_F(JobNameDialog, TakesAnyOfThreeNotificationsForACommandAndNoOther) {
    Look([](HWND dialog) {
        for (const int code : {1, 2, 5, 256, 512, 1025, 0xFFFF})
            for (const int id : {1, 2, kAutomatic})
                SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, code), 0);
        EXPECT_TRUE(CanType(dialog));
    });
    for (const int code : {0, 768, 1024}) {
        EXPECT_EQ(Run({[code](HWND dialog) { SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(2, code), 0); }}),
                  IDCANCEL)
            << code;
        EXPECT_EQ(Run({[code](HWND dialog) { SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(1, code), 0); }}),
                  IDOK)
            << code;
    }
}

TEST_F(JobNameDialog, ChecksNoButtonForAChoiceThatHasNone) {
    for (const std::uint32_t choice : {2u, 7u, 1221u, 0x10001u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        StoreName(choice, "報告");
        Look([](HWND dialog) {
            EXPECT_EQ(Checked(dialog), Ids{});
            EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
            EXPECT_FALSE(CanType(dialog));
            EXPECT_EQ(Shown(dialog), "報告");
        });
    }
}

TEST_F(JobNameDialog, LeavesAChoiceThatHasNoButton) {
    StoreName(7, "報告");
    EXPECT_EQ(Run({Ok}), IDOK);
    EXPECT_EQ(StoredChoice(), 7u);
    EXPECT_EQ(StoredName(), "報告");
}

TEST_F(JobNameDialog, ReplacesAChoiceThatHasNoButton) {
    StoreName(7, "報告");
    EXPECT_EQ(Run({[](HWND dialog) { ClickButton(dialog, kEntered); }, Ok}), IDOK);
    EXPECT_EQ(StoredChoice(), 1u);
}

TEST_F(JobNameDialog, TakesTheLastOfTwoCheckedButtons) {
    StoreName(0, "報告");
    EXPECT_EQ(Run({[](HWND dialog) {
                  CheckDlgButton(dialog, kAutomatic, BST_CHECKED);
                  CheckDlgButton(dialog, kEntered, BST_CHECKED);
                  EXPECT_EQ(Checked(dialog), (Ids{kAutomatic, kEntered}));
                  Ok(dialog);
              }}),
              IDOK);
    EXPECT_EQ(StoredChoice(), 1u);
}

TEST_F(JobNameDialog, OfASheetThatHasGoneStoresNothing) {
    EXPECT_EQ(Run({[this](HWND dialog) {
                  SetText(dialog, kEdit, "other");
                  EndSession();
                  Ok(dialog);
              }}),
              IDCANCEL);
    EXPECT_EQ(StoredName(), "報告");
}

class JobNameOnThePage : public StandardPageDriver {
  protected:
    std::string Shown() const { return WindowText(Control(1225)); }
};

TEST_F(JobNameOnThePage, IsTheEnteredOne) {
    StoreName(1, "表紙 & 目次");
    OpenWith();
    EXPECT_EQ(Shown(), "表紙 & 目次");
}

TEST_F(JobNameOnThePage, IsSaidToBeFormedAutomatically) {
    for (const std::uint32_t choice : {0u, 2u, 7u, 0xFFFFFFFFu}) {
        StoreName(choice, "報告");
        OpenWith();
        EXPECT_EQ(Shown(), "自動取得") << choice;
    }
}

TEST_F(JobNameOnThePage, MayBeAsLongAsTheStoreHasIt) {
    StoreName(1, std::string(511, 'n'));
    OpenWith();
    EXPECT_EQ(Shown(), std::string(511, 'n'));
}

TEST_F(JobNameOnThePage, FollowsTheDialog) {
    StoreName(0, "");
    OpenWith();
    {
        const ModalDialog user({[](HWND dialog) {
            EXPECT_EQ(WindowText(dialog), "ジョブ名の指定");
            ClickButton(dialog, kEntered);
            SetText(dialog, kEdit, "年次報告");
            ClickButton(dialog, IDOK);
        }});
        EXPECT_EQ(Send(1216, 0), 1);
    }
    EXPECT_EQ(Shown(), "年次報告");
}

TEST_F(JobNameOnThePage, StaysAfterACancel) {
    StoreName(1, "報告");
    OpenWith();
    {
        const ModalDialog user({[](HWND dialog) {
            SetText(dialog, kEdit, "年次報告");
            ClickButton(dialog, IDCANCEL);
        }});
        Send(1216, 0);
    }
    EXPECT_EQ(Shown(), "報告");
}

TEST_F(JobNameOnThePage, IsLeftAloneOnceTheSheetHasGone) {
    StoreName(1, "報告");
    OpenWith();
    StoreName(1, "other");
    EndSession();
    ChangeJobName(page, &block);
    EXPECT_EQ(Shown(), "報告");
}

TEST_F(JobNameOnThePage, NeedsNoControl) {
    OpenWith();
    DestroyWindow(Control(1225));
    StoreName(1, "報告");
    ChangeJobName(page, &block);
}

} // namespace
