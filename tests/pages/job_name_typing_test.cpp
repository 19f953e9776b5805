// How long a job's name may be, while it is typed and at OK.
#include "tests/pages/job_name_fixture.h"

namespace {

class JobNameTyping : public JobNameTest {
  protected:
    // Types characters of either width, each of which the edit reports.
    static void Type(HWND dialog, int count, const std::string& character) {
        for (int i = 0; i < count; ++i)
            SendDlgItemMessageA(dialog, kEdit, EM_REPLACESEL, TRUE,
                                reinterpret_cast<LPARAM>(character.c_str()));
    }
    static void PlaceCaret(HWND dialog, int at) { SendDlgItemMessageA(dialog, kEdit, EM_SETSEL, at, at); }
};

TEST_F(JobNameTyping, TakesCharactersOfAKeyboard) {
    for (const std::string typed : {"report 7", "表紙とソート①　能", "ｱa表"}) {
        Look([&](HWND dialog) {
            TypeInto(dialog, kEdit, typed);
            EXPECT_EQ(Shown(dialog), typed);
        });
    }
}

// With the end mark they are 256.
TEST_F(JobNameTyping, EndsAt255Characters) {
    for (const std::string character : {"a", "ｱ", "表", "①"}) {
        Look([&](HWND dialog) {
            SetText(dialog, kEdit, "");
            Type(dialog, 255, character);
            EXPECT_EQ(Shown(dialog), Repeated(255, character));
            Type(dialog, 1, character);
            EXPECT_EQ(Shown(dialog), Repeated(255, character));
            Type(dialog, 1, "z");
            EXPECT_EQ(Shown(dialog), Repeated(255, character));
        });
    }
}

TEST_F(JobNameTyping, CountsCharactersOfEitherWidthAsOne) {
    Look([](HWND dialog) {
        const std::string mixed = Repeated(100, "表") + std::string(155, 'a');
        SetText(dialog, kEdit, mixed);
        EXPECT_EQ(Shown(dialog), mixed);
        Type(dialog, 1, "a");
        EXPECT_EQ(Shown(dialog), mixed);
    });
}

TEST_F(JobNameTyping, PutsTheCaretOnePlaceBack) {
    Look([](HWND dialog) {
        SetText(dialog, kEdit, std::string(255, 'a'));
        PlaceCaret(dialog, 100);
        Type(dialog, 1, "b");
        EXPECT_EQ(Shown(dialog), std::string(255, 'a'));
        EXPECT_EQ(SelectionOf(dialog, kEdit), Selection(100, 100));
    });
}

TEST_F(JobNameTyping, PutsTheCaretOnePlaceBackFromTheKeyboardToo) {
    Look([](HWND dialog) {
        SetText(dialog, kEdit, std::string(255, 'a'));
        MoveFocus(dialog, kEdit);
        PlaceCaret(dialog, 3);
        SendDlgItemMessageA(dialog, kEdit, WM_CHAR, 'b', 1);
        EXPECT_EQ(Shown(dialog), std::string(255, 'a'));
        EXPECT_EQ(SelectionOf(dialog, kEdit), Selection(3, 3));
    });
}

TEST_F(JobNameTyping, GoesOnAfterARefusedCharacter) {
    Look([](HWND dialog) {
        SetText(dialog, kEdit, std::string(255, 'a'));
        Type(dialog, 1, "b");
        SendDlgItemMessageA(dialog, kEdit, EM_SETSEL, 0, 2);
        Type(dialog, 1, "c");
        EXPECT_EQ(Shown(dialog), "c" + std::string(253, 'a'));
        Type(dialog, 1, "d");
        EXPECT_EQ(Shown(dialog), "cd" + std::string(253, 'a'));
        Type(dialog, 1, "e");
        EXPECT_EQ(Shown(dialog), "cd" + std::string(253, 'a'));
    });
}

TEST_F(JobNameTyping, LeavesTheEarlierTextWhenTooMuchIsPasted) {
    for (const int length : {256, 511, 512, 513, 1023, 1024, 20000}) {
        Look([length](HWND dialog) {
            TypeInto(dialog, kEdit, "report");
            SendDlgItemMessageA(dialog, kEdit, EM_SETSEL, 0, -1);
            Paste(dialog, kEdit, std::string(static_cast<std::size_t>(length), 'x'));
            EXPECT_EQ(Shown(dialog), "report") << length;
        });
    }
}

TEST_F(JobNameTyping, LeavesTheEarlierTextWhenTooMuchFullWidthTextIsPasted) {
    for (const int length : {256, 257, 512, 5000}) {
        Look([length](HWND dialog) {
            Paste(dialog, kEdit, Repeated(length, "表"));
            EXPECT_EQ(Shown(dialog), "報告") << length;
            Paste(dialog, kEdit, "a" + Repeated(length, "表"));
            EXPECT_EQ(Shown(dialog), "報告") << length;
        });
    }
}

TEST_F(JobNameTyping, TakesWhatIsPastedWithinTheLimit) {
    Look([](HWND dialog) {
        SendDlgItemMessageA(dialog, kEdit, EM_SETSEL, 0, -1);
        Paste(dialog, kEdit, Repeated(255, "表"));
        EXPECT_EQ(Shown(dialog), Repeated(255, "表"));
    });
}

TEST_F(JobNameTyping, LeavesTheEarlierTextWhenAnotherProgramSetsTooMuch) {
    Look([](HWND dialog) {
        SetText(dialog, kEdit, std::string(256, 'x'));
        EXPECT_EQ(Shown(dialog), "報告");
    });
}

TEST_F(JobNameTyping, NeverBringsBackTheTextOfAnotherDialog) {
    Look([](HWND dialog) { SetText(dialog, kEdit, "of the first"); });
    for (const std::string& stored : {std::string("of the second"), std::string(), std::string(300, 's')}) {
        StoreName(1, stored);
        Look([&](HWND dialog) {
            SetText(dialog, kEdit, std::string(400, 'x'));
            EXPECT_EQ(Shown(dialog), stored);
        });
    }
}

TEST_F(JobNameTyping, StoresAllOf255FullWidthCharacters) {
    EXPECT_EQ(Run({[](HWND dialog) {
                  SetText(dialog, kEdit, Repeated(255, "表"));
                  Ok(dialog);
              }}),
              IDOK);
    EXPECT_EQ(StoredName(), Repeated(255, "表"));
}

// The store may have a longer name, which an application has set.
TEST_F(JobNameTyping, KeepsALongerNameOfTheStore) {
    for (const std::size_t length : {256u, 300u, 511u}) {
        const std::string stored(length, 's');
        StoreName(1, stored);
        EXPECT_EQ(Run({[&](HWND dialog) {
                      EXPECT_EQ(Shown(dialog), stored);
                      Ok(dialog);
                  }}),
                  IDOK);
        EXPECT_EQ(StoredName(), stored);
    }
}

TEST_F(JobNameTyping, TakesAnotherNameOnlyWholeInPlaceOfALongerOneOfTheStore) {
    const std::string stored(300, 's');
    StoreName(1, stored);
    Look([&](HWND dialog) {
        PlaceCaret(dialog, 10);
        Type(dialog, 1, "x");
        EXPECT_EQ(Shown(dialog), stored);
        SendDlgItemMessageA(dialog, kEdit, EM_SETSEL, 0, 5);
        Type(dialog, 1, "x");
        EXPECT_EQ(Shown(dialog), stored);
        SendDlgItemMessageA(dialog, kEdit, EM_SETSEL, 0, -1);
        Type(dialog, 1, "x");
        EXPECT_EQ(Shown(dialog), "x");
    });
}

// Half of the added character lies beyond the bytes that the last good text has room for.
TEST_F(JobNameTyping, AddsNothingToAStoredNameThatFillsTheStore) {
    const std::string stored(511, 's');
    StoreName(1, stored);
    Look([&](HWND dialog) {
        for (const std::string character : {"s", "ｱ", "表"}) {
            PlaceCaret(dialog, 511);
            Type(dialog, 1, character);
            EXPECT_EQ(Shown(dialog), stored) << character;
        }
    });
}

TEST_F(JobNameTyping, ShowsWhatFitsOfAStoreWhoseTextFillsItsField) {
    ExportedFunc_SetSpecificJobName(1);
    ExportedFunc_SetJobName((Repeated(255, "表") + "表表").c_str());
    Look([](HWND dialog) { EXPECT_EQ(Shown(dialog), Repeated(255, "表")); });
}

// Such bytes come back from an edit as other ones.
TEST_F(JobNameTyping, WorksOnAStoredTextThatIsNoneOfTheCodePage) {
    for (const std::string bytes : {"\x81\x20", "\xFD", "\xA0\x80", "\xFC\xFC", "\xEF\xF0\xFF"}) {
        StoreName(1, Repeated(511 / static_cast<int>(bytes.size()), bytes));
        Look([](HWND dialog) {
            const std::string shown = Shown(dialog);
            EXPECT_FALSE(shown.empty());
            SetText(dialog, kEdit, "short");
            EXPECT_EQ(Shown(dialog), "short");
            SetText(dialog, kEdit, std::string(300, 'x'));
            EXPECT_EQ(Shown(dialog), "short");
        });
        Look([](HWND dialog) {
            SetText(dialog, kEdit, std::string(300, 'x'));
            EXPECT_NE(Shown(dialog), std::string(300, 'x'));
        });
    }
}

// What cannot be typed can still stand in the edit when its notifications do not arrive.

DLGPROC procedureBelow = nullptr;

INT_PTR CALLBACK WithoutTyping(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == kEdit)
        return 0;
    return procedureBelow(dialog, message, wParam, lParam);
}

class JobNameAtOk : public JobNameTyping {
  protected:
    static void SetUnseen(HWND dialog, const std::string& text) {
        procedureBelow = reinterpret_cast<DLGPROC>(
            SetWindowLongPtrA(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(WithoutTyping)));
        SetText(dialog, kEdit, text);
        EXPECT_EQ(Shown(dialog), text);
    }
    INT_PTR TakeUnseen(const std::string& text) {
        return Run({[&](HWND dialog) {
            SetUnseen(dialog, text);
            Ok(dialog);
        }});
    }
};

TEST_F(JobNameAtOk, MayHave511Characters) {
    EXPECT_EQ(TakeUnseen(std::string(511, 'x')), IDOK);
    EXPECT_EQ(StoredName(), std::string(511, 'x'));
}

TEST_F(JobNameAtOk, MayNotHave512) {
    for (const int length : {512, 513, 514, 1000, 30000}) {
        Look([length](HWND dialog) {
            SetUnseen(dialog, std::string(static_cast<std::size_t>(length), 'x'));
            auto box = AnswerNextMessageBox();
            Ok(dialog);
            EXPECT_EQ(box.get().text, "ジョブ名が入力されていません。") << length;
        });
        EXPECT_EQ(StoredName(), "報告");
    }
}

// 256 of them are 512 bytes, of which the store has room for 511.
TEST_F(JobNameAtOk, IsCutBetweenTwoCharactersWhereTheStoreEnds) {
    for (const int length : {256, 300, 511, 5000}) {
        EXPECT_EQ(TakeUnseen(Repeated(length, "表")), IDOK) << length;
        EXPECT_EQ(StoredName(), Repeated(255, "表")) << length;
        EXPECT_EQ(TakeUnseen("a" + Repeated(length, "表")), IDOK) << length;
        EXPECT_EQ(StoredName(), "a" + Repeated(255, "表")) << length;
    }
}

} // namespace
