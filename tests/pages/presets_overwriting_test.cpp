// Saving a favourite under a name whose file is there already, and sheets that end behind a dialog.
#include "pages/standardpage.h"
#include "session/session.h"
#include "tests/pages/presets_saving_fixture.h"
#include "tests/support/file_contents.h"

#include <algorithm>
#include <fstream>

namespace {

using Texts = std::vector<std::string>;

void LoseSession() {
    CSessionAccessor::Instance()->SetSession(nullptr);
}

class OverwritingPresets : public SavingPresets {
  protected:
    // The names in the favourite directory.
    Texts Files() const {
        Texts names;
        for (const auto& entry : std::filesystem::directory_iterator(Directory()))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    // A file that is there but not in the list.
    void WriteUnlisted(std::string_view name) const {
        std::ofstream(FileOf(name), std::ios::binary) << "no favourite of this list";
    }
    void ExpectUnlisted(std::string_view name) const {
        EXPECT_EQ(FileContents(FileOf(name)), "no favourite of this list");
    }
};

using EndingSheet = OverwritingPresets;

} // namespace

TEST_F(OverwritingPresets, ByANameThatDiffersInCaseAloneAsksAndKeepsRowNameAndComment) {
    OpenPage({Favorite("Flyer", "for leaflets"), Favorite("Z")});
    ChangeDuplex();
    EXPECT_EQ(SaveAndAnswer("fLYER", IDYES, "typed").text, kOverwrite);
    EXPECT_EQ(Presets(), (Texts{"標準", "Flyer", "Z"}));
    EXPECT_EQ(Selected(), "Flyer");
    EXPECT_EQ(Files(), (Texts{"Flyer.pfk", "Z.pfk"}));
    EXPECT_STREQ(Read("Flyer").Comment.data(), "for leaflets");
    EXPECT_STREQ(Listed("Flyer").Comment.data(), "for leaflets");
    EXPECT_NE(Get(Read("Flyer"), FieldId::DuplexMode), Get(Manager().Default(), FieldId::DuplexMode));
}

TEST_F(OverwritingPresets, ByANameThatDiffersInTheCaseOfADoubleByteLetterAsks) {
    OpenPage({Favorite("ａ", "for leaflets")});
    EXPECT_EQ(SaveAndAnswer("Ａ", IDYES).text, kOverwrite);
    EXPECT_EQ(Presets(), (Texts{"標準", "ａ"}));
    EXPECT_STREQ(Read("ａ").Comment.data(), "for leaflets");
}

// The second byte of each is a letter, "A" and "a".
TEST_F(OverwritingPresets, TakesCharactersWhoseSecondBytesDifferAsInCaseForTwo) {
    OpenPage({Favorite("\x83\x41")});
    Save("\x83\x61");
    EXPECT_EQ(Manager().Count(), 2u);
    EXPECT_EQ(Selected(), "\x83\x61");
}

TEST_F(OverwritingPresets, ByANameThatDiffersInCaseAloneAfterNoChangesNothing) {
    OpenPage({Favorite("Flyer", "for leaflets")});
    ChangeDuplex();
    const std::string file = FileContents(FileOf("Flyer"));
    EXPECT_EQ(SaveAndAnswer("flyer", IDNO).text, kOverwrite);
    EXPECT_EQ(FileContents(FileOf("Flyer")), file);
    EXPECT_EQ(Files(), Texts{"Flyer.pfk"});
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準", "Flyer"}));
    EXPECT_EQ(Manager().Count(), 1u);
}

TEST_F(OverwritingPresets, OfAFileThatTheListDoesNotHaveAsksAndMakesANewFavorite) {
    OpenPage();
    WriteUnlisted("B");
    EXPECT_EQ(SaveAndAnswer("B", IDYES, "typed").text, kOverwrite);
    EXPECT_STREQ(Read("B").Comment.data(), "typed");
    EXPECT_EQ(Read("B").IotVer, 10u);
    EXPECT_EQ(Presets(), (Texts{"標準", "B"}));
    EXPECT_EQ(Selected(), "B");
}

TEST_F(OverwritingPresets, OfAFileThatTheListDoesNotHaveAfterNoLeavesIt) {
    OpenPage();
    WriteUnlisted("B");
    EXPECT_EQ(SaveAndAnswer("b", IDNO).text, kOverwrite);
    ExpectUnlisted("B");
    EXPECT_EQ(Manager().Count(), 0u);
    EXPECT_EQ(Presets(), Texts{"標準"});
}

TEST_F(EndingSheet, BehindTheSaveDialogSavesNothing) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    const ModalDialog user({[](HWND dialog) {
        SetDlgItemTextA(dialog, kName, "B");
        LoseSession();
        ClickButton(dialog, IDOK);
    }});
    Send(kSave, BN_CLICKED);
    EXPECT_EQ(Files(), Texts{"A.pfk"});
    EXPECT_EQ(Manager().Count(), 1u);
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準", "A"}));
}

TEST_F(EndingSheet, BehindTheOverwriteQuestionSavesNothing) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    const std::string file = FileContents(FileOf("A"));
    auto box = AnswerNextMessageBox(IDYES, LoseSession);
    const ModalDialog user({[](HWND dialog) {
        SetDlgItemTextA(dialog, kName, "A");
        ClickButton(dialog, IDOK);
    }});
    Send(kSave, BN_CLICKED);
    EXPECT_EQ(box.get().text, kOverwrite);
    EXPECT_EQ(FileContents(FileOf("A")), file);
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準", "A"}));
    EXPECT_EQ(Get(Listed("A"), FieldId::DuplexMode), Get(Manager().Default(), FieldId::DuplexMode));
}

TEST_F(EndingSheet, BehindTheDialogOfTheFavoritesLeavesPageBankAndFiles) {
    OpenPage({Favorite("A"), Favorite("B")});
    ChangeDuplex();
    const CurrentBank bank = WholeBank();
    const std::string file = FileContents(FileOf("A"));
    const ModalDialog user({[](HWND dialog) {
        LoseSession();
        ClickButton(dialog, IDOK);
    }});
    Send(kFiles, BN_CLICKED);
    EXPECT_EQ(WholeBank(), bank);
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準", "A", "B"}));
    EXPECT_EQ(Selected(), "<変更>標準");
    EXPECT_EQ(Files(), (Texts{"A.pfk", "B.pfk"}));
    EXPECT_EQ(FileContents(FileOf("A")), file);
}
