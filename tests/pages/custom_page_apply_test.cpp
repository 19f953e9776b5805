// What the dialog stores, and how it ends.
#include "pages/controls.h"
#include "tests/pages/custom_page_dialog_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/message_box.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

namespace {

TEST_F(CustomPageDialog, StoresTheDocumentsSizeOnOk) {
    SetOutput(1, 2, 3);
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "123.4");
                  TypeInto(dialog, kHeight, "567.8");
                  ClickButton(dialog, kOk);
              }}),
              kOk);
    EXPECT_EQ(Document(), (Sizes{123400, 567800}));
    EXPECT_EQ(Current(kCustomPaperDirection), 1u);
    EXPECT_EQ(Output(), (Sizes{1, 2}));
    EXPECT_EQ(Current(kCustomChgPaperDirection), 3u);
}

TEST_F(CustomPageDialog, StoresTheOutputsSizeOnOk) {
    SetDocument(1, 2, 3);
    SetOutput(210000, 297000, 0);
    EXPECT_EQ(Run({[](HWND dialog) {
                      TypeInto(dialog, kWidth, "200");
                      ClickButton(dialog, kOk);
                  }},
                  kOutput, 1),
              kOk);
    EXPECT_EQ(Output(), (Sizes{200000, 297000}));
    EXPECT_EQ(Document(), (Sizes{1, 2}));
    EXPECT_EQ(Current(kCustomPaperDirection), 3u);
}

TEST_F(CustomPageDialog, WritesTheHiddenDirectionAsItsTag) {
    for (const std::uint32_t stored : {0u, 1u, 77u}) {
        SetDocument(210000, 297000, stored);
        SetOutput(210000, 297000, stored);
        Run({[](HWND dialog) { ClickButton(dialog, kOk); }});
        EXPECT_EQ(Current(kCustomPaperDirection), 1u) << stored;
        Run({[](HWND dialog) { ClickButton(dialog, kOk); }}, kOutput);
        EXPECT_EQ(Current(kCustomChgPaperDirection), 1u) << stored;
    }
}

TEST_F(CustomPageDialog, StoresMillimetersFromEveryUnit) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  ClickButton(dialog, kInch);
                  TypeInto(dialog, kWidth, "10");
                  TypeInto(dialog, kHeight, "20.5");
                  ClickButton(dialog, kOk);
              }}),
              kOk);
    EXPECT_EQ(Document(), (Sizes{254000, 520700}));
    EXPECT_EQ(Run({[](HWND dialog) {
                  ClickButton(dialog, kPoint);
                  TypeInto(dialog, kWidth, "595");
                  TypeInto(dialog, kHeight, "842");
                  ClickButton(dialog, kOk);
              }}),
              kOk);
    EXPECT_EQ(Document(), (Sizes{209904, 297041})); // 209904.1 and 297040.8
}

TEST_F(CustomPageDialog, TakesAnOkThatAnAcceleratorSends) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "100");
                  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kOk, 1), 0);
              }}),
              kOk);
    EXPECT_EQ(Document(), (Sizes{100000, 297000}));
}

TEST_F(CustomPageDialog, PassesValuesEqualToALimit) {
    for (const auto& [width, height, sizes] :
         {std::tuple{"89", "98", Sizes{89000, 98000}}, {"320", "1200", Sizes{320000, 1200000}}}) {
        EXPECT_EQ(Run({[&](HWND dialog) {
                      TypeInto(dialog, kWidth, width);
                      TypeInto(dialog, kHeight, height);
                      ClickButton(dialog, kOk);
                  }}),
                  kOk);
        EXPECT_EQ(Document(), sizes);
    }
}

TEST_F(CustomPageDialog, StoresNothingOnCancel) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "100");
                  ClickButton(dialog, kCancel);
              }}),
              kCancel);
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, EndsWithTwoByItsCloseBox) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "100");
                  SendMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
              }}),
              2);
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, TakesEnterForOk) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "100");
                  PressKey(VK_RETURN);
              }}),
              kOk);
    EXPECT_EQ(Document(), (Sizes{100000, 297000}));
}

TEST_F(CustomPageDialog, TakesEnterForTheButtonThatHasTheFocus) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "100");
                  MoveFocus(dialog, kCancel);
                  PressKey(VK_RETURN);
              }}),
              kCancel);
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, TakesEscapeForCancel) {
    for (const int control : {kWidth, kInch, kDefaults, kOk}) {
        EXPECT_EQ(Run({[control](HWND dialog) {
                      TypeInto(dialog, kWidth, "100");
                      MoveFocus(dialog, control);
                      PressKey(VK_ESCAPE);
                  }}),
                  kCancel)
            << control;
    }
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, AsksAboutASizeAboveTheLimitOnEnterAndStoresItAsTyped) {
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(Run({[](HWND dialog) {
                  ClickButton(dialog, kInch);
                  TypeInto(dialog, kWidth, "12.6");
                  PressKey(VK_RETURN);
              }}),
              kOk);
    const MessageBoxSeen seen = box.get();
    EXPECT_EQ(seen.caption, "カスタムページサイズ");
    EXPECT_EQ(seen.text, "入力したカスタムページサイズ パラーメターが矛盾しています。\n"
                         "[OK]をクリックすると、システムが自動的に矛盾を解決します。"
                         "[キャンセル]をクリックすると、自分で矛盾を解決できます。\n");
    EXPECT_TRUE(seen.canCancel);
    EXPECT_EQ(seen.icon, LoadIconA(nullptr, IDI_ERROR));
    EXPECT_EQ(Document(), (Sizes{320040, 297180})); // 11.7 inch
}

// Sent as the key does, so that the texts are looked at before any later loss of the focus.
TEST_F(CustomPageDialog, StaysOpenWithTheTextAsTypedWhenTheUserDeclines) {
    auto box = AnswerNextMessageBox(IDCANCEL);
    EXPECT_EQ(Run({[](HWND dialog) {
                       TypeInto(dialog, kWidth, "5");
                       SendMessageA(dialog, WM_COMMAND, IDOK, 0);
                       EXPECT_EQ(Edits(dialog), (Texts{"5", "297.0"}));
                       EXPECT_EQ(GetFocus(), GetDlgItem(dialog, kWidth));
                   },
                   [](HWND dialog) { ClickButton(dialog, kCancel); }}),
              kCancel);
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, ClampsAgainAfterTheUserDeclined) {
    auto box = AnswerNextMessageBox(IDCANCEL);
    EXPECT_EQ(Run({[](HWND dialog) {
                       TypeInto(dialog, kWidth, "5");
                       PressKey(VK_RETURN);
                   },
                   [](HWND dialog) {
                       MoveFocus(dialog, kHeight);
                       EXPECT_EQ(CaptionOf(dialog, kWidth), "89.0");
                       ClickButton(dialog, kOk);
                   }}),
              kOk);
    box.get();
    EXPECT_EQ(Document(), (Sizes{89000, 297000}));
}

TEST_F(CustomPageDialog, AsksAboutAHeightBeyondItsLimits) {
    for (const char* height : {"97.9", "1200.1"}) {
        auto box = AnswerNextMessageBox(IDOK);
        EXPECT_EQ(Run({[&](HWND dialog) {
                      TypeInto(dialog, kHeight, height);
                      PressKey(VK_RETURN);
                  }}),
                  kOk);
        EXPECT_NE(box.get().text, "") << height;
    }
    EXPECT_EQ(Document(), (Sizes{210000, 1200100}));
}

TEST_F(CustomPageDialog, AsksOnceWhenBothAreBeyondTheirLimitsAndStoresBoth) {
    SetOutput(1000, 2000000);
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(Run({[](HWND) { PressKey(VK_RETURN); }}, kOutput), kOk);
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Output(), (Sizes{1000, 2000000}));
}

// The smallest width in inches is 3.504, which an edit shows as 3.5.
TEST_F(CustomPageDialog, AsksAboutALimitThatItHasItselfRounded) {
    auto box = AnswerNextMessageBox(IDOK);
    EXPECT_EQ(Run({[](HWND dialog) {
                  ClickButton(dialog, kInch);
                  TypeInto(dialog, kWidth, "1");
                  MoveFocus(dialog, kHeight);
                  EXPECT_EQ(CaptionOf(dialog, kWidth), "3.5");
                  ClickButton(dialog, kOk);
              }}),
              kOk);
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Document()[0], 88900u);
}

TEST_F(CustomPageDialog, RestoresTheDocumentsDefaultsForBothSizes) {
    ExportedFunc_SetDefault(kCustomPaperWidth, 182000);
    ExportedFunc_SetDefault(kCustomPaperHeight, 257000);
    for (const std::uint32_t direction : {0u, 1u, 9u}) {
        ExportedFunc_SetDefault(kCustomPaperDirection, direction);
        ExportedFunc_SetDefault(kCustomChgPaperDirection, direction);
        for (const WORD editId : {kDocument, kOutput}) {
            SetDocument(210000, 297000);
            SetOutput(300000, 400000);
            EXPECT_EQ(Run({[](HWND dialog) {
                              ClickButton(dialog, kDefaults);
                              EXPECT_EQ(Edits(dialog), (Texts{"182.0", "257.0"}));
                              EXPECT_EQ(SelectedRow(GetDlgItem(dialog, kDirection)), 0);
                              ClickButton(dialog, kOk);
                          }},
                          editId),
                      kOk);
            EXPECT_EQ(editId == kDocument ? Document() : Output(), (Sizes{182000, 257000}));
        }
    }
}

TEST_F(CustomPageDialog, ShowsTheDefaultsInThePresentUnit) {
    ExportedFunc_SetDefault(kCustomPaperWidth, 100000);
    ExportedFunc_SetDefault(kCustomPaperHeight, 200000);
    Look([](HWND dialog) {
        ClickButton(dialog, kInch);
        ClickButton(dialog, kDefaults);
        EXPECT_EQ(Edits(dialog), (Texts{"3.9", "7.9"}));
        ClickButton(dialog, kMillimeter);
        EXPECT_EQ(Edits(dialog), (Texts{"100.0", "200.0"}));
    });
}

TEST_F(CustomPageDialog, ClampsDefaultsThatAreNone) {
    ExportedFunc_SetDefault(kCustomPaperWidth, 0);
    ExportedFunc_SetDefault(kCustomPaperHeight, 0xFFFFFFFF);
    Look([](HWND dialog) {
        ClickButton(dialog, kDefaults);
        EXPECT_EQ(Edits(dialog), (Texts{"89.0", "1200.0"}));
    });
}

TEST_F(CustomPageDialog, LogsAndStaysOpenOnOkWithoutTheDirection) {
    MainLog log;
    EXPECT_EQ(Run({[](HWND dialog) {
                       DestroyWindow(GetDlgItem(dialog, kDirection));
                       ClickButton(dialog, kOk);
                   },
                   [](HWND dialog) { ClickButton(dialog, kCancel); }}),
              kCancel);
    const std::vector<std::string> messages = log.Messages();
    EXPECT_TRUE(std::ranges::find(messages, "ApplyValues() ctl == NULL") != messages.end());
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, WorksWithoutItsControls) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  for (const int id :
                       {kHeight, kWidthLimits, kHeightLimits, kInch, kDirectionLabel, kDirection, kDefaults})
                      DestroyWindow(GetDlgItem(dialog, id));
                  for (const int id : {kInch, kPoint, kDefaults, kDirection})
                      SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
                  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kHeight, EN_KILLFOCUS), 0);
                  ClickButton(dialog, kCancel);
              }}),
              kCancel);
}

TEST_F(CustomPageDialog, StoresNothingAndEndsOnceItsSessionIsGone) {
    EXPECT_EQ(Run({[&](HWND dialog) {
                  TypeInto(dialog, kWidth, "100");
                  EndSession();
                  ClickButton(dialog, kOk);
              }}),
              2);
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, StoresNothingOnceItsSessionIsGoneBehindTheQuestion) {
    auto box = AnswerNextMessageBox(IDOK, [this] { EndSession(); });
    EXPECT_EQ(Run({[](HWND dialog) {
                  TypeInto(dialog, kWidth, "5");
                  SendMessageA(dialog, WM_COMMAND, IDOK, 0);
                  EXPECT_EQ(Document(), (Sizes{210000, 297000}));
                  ClickButton(dialog, kCancel);
              }}),
              2);
    EXPECT_NE(box.get().text, "");
    EXPECT_EQ(Document(), (Sizes{210000, 297000}));
}

TEST_F(CustomPageDialog, LetsNoExceptionOut) {
    class Popup : public CBasicPopupDlg {
      public:
        using CBasicPopupDlg::CBasicPopupDlg;
        int OnInitDialog() override { throw std::runtime_error("broken"); }
        int OnCommand(WORD, WORD, HWND) override { throw 5; }
    } popup(&block, 102);
    EXPECT_EQ(RunModal(popup, {[](HWND dialog) {
                           SendMessageA(dialog, WM_COMMAND, kOk, 0);
                           SendMessageA(dialog, WM_CLOSE, 0, 0);
                       }}),
              2);
}

TEST_F(CustomPageDialog, IsNoneForATemplateThatIsNotThere) {
    class Popup : public CBasicPopupDlg {
      public:
        using CBasicPopupDlg::CBasicPopupDlg;
        int OnInitDialog() override { return 1; }
        int OnCommand(WORD, WORD, HWND) override { return 0; }
    } popup(&block, 31999);
    EXPECT_LE(popup.DoModal(), 0);
}

} // namespace
