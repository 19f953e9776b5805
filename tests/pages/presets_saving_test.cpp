// Saving and deleting favourites on the standard page.
#include "pages/standardpage.h"
#include "tests/pages/presets_saving_fixture.h"
#include "tests/support/file_contents.h"

#include <algorithm>
#include <filesystem>

namespace {

using Texts = std::vector<std::string>;

constexpr char kAskDelete[] = "選択したお気に入りを削除します。\nよろしいですか？";

using DeletingPresets = SavingPresets;

} // namespace

TEST_F(SavingPresets, OfANewNameWritesAFileOfThePresentFormatWithThePresentSettings) {
    OpenPage();
    ChangeDuplex();
    ExportedFunc_SetUserComment("of the job");
    Save("両面", "両面で印刷");
    const CFavoriteSetting saved = Read("両面");
    EXPECT_STREQ(saved.Comment.data(), "両面で印刷");
    EXPECT_EQ(saved.FileVer, 2u);
    EXPECT_EQ(saved.IotVer, 10u);
    EXPECT_EQ(saved.CharCode, 0u);
    EXPECT_STREQ(saved.PageSize.data(), "A3") << "the third form, which is the standard one";
    EXPECT_EQ(GetText(saved, FieldId::UserComment), "of the job");
    EXPECT_NE(Get(saved, FieldId::DuplexMode), Get(Manager().Default(), FieldId::DuplexMode));
}

TEST_F(SavingPresets, OfANewNameSelectsItUnmarkedAndLetsItBeDeleted) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    Save("B");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Selected(), "B");
    EXPECT_TRUE(CanDelete());
    EXPECT_EQ(Current(keyword::DuplexMode), 1u);
    EXPECT_EQ(ChangesSeen(), 2);
}

TEST_F(SavingPresets, OfANewNameTakesTheFavoriteDirectoryIntoTheList) {
    OpenPage();
    Save("B");
    ASSERT_EQ(Manager().Count(), 1u);
    EXPECT_EQ(Listed("B").Directory.data(), Directory());
    EXPECT_EQ(Listed("B").FileVer, 2u);
    EXPECT_EQ(Listed("B").IotVer, 10u);
    EXPECT_EQ(Listed("B").CharCode, 0u);
}

TEST_F(SavingPresets, OffersNeitherANameNorACommentForTheStandardSettings) {
    OpenPage();
    const Offer offer = Save("A", {}, IDCANCEL);
    EXPECT_EQ(offer.name, "");
    EXPECT_EQ(offer.comment, "");
}

TEST_F(SavingPresets, OffersNameAndCommentOfTheSelectedFavoriteAlsoOfAMarkedOne) {
    OpenPage({Favorite("A", "for leaflets")});
    ChoosePreset("A");
    Offer offer = Save("A", {}, IDCANCEL);
    EXPECT_EQ(offer.name, "A");
    EXPECT_EQ(offer.comment, "for leaflets");
    ChangeDuplex();
    ASSERT_EQ(Selected(), "<変更>A");
    offer = Save("A", {}, IDCANCEL);
    EXPECT_EQ(offer.name, "A");
    EXPECT_EQ(offer.comment, "for leaflets");
}

TEST_F(SavingPresets, OffersATextWithoutTheEndOfAMarkWhole) {
    OpenPage();
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_TEXT;
    item.iItem = 1;
    item.pszText = const_cast<char*>("<A");
    SendMessageA(Control(kPresets), CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    SendMessageA(Control(kPresets), CB_SETCURSEL, 1, 0);
    EXPECT_EQ(Save("A", {}, IDCANCEL).name, "<A");
}

TEST_F(SavingPresets, OverAFavoriteKeepsItsCommentAndDropsTheTypedOne) {
    OpenPage({Favorite("A", "for leaflets")});
    ChoosePreset("A");
    ChangeDuplex();
    const MessageBoxSeen box = SaveAndAnswer("A", IDYES, "typed");
    EXPECT_EQ(box.text, kOverwrite);
    EXPECT_EQ(box.caption, "警告");
    EXPECT_NE(box.icon, nullptr);
    EXPECT_STREQ(Read("A").Comment.data(), "for leaflets");
    EXPECT_NE(Get(Read("A"), FieldId::DuplexMode), Get(Manager().Default(), FieldId::DuplexMode));
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
    EXPECT_EQ(Selected(), "A");
    EXPECT_TRUE(CanDelete());
}

TEST_F(SavingPresets, OverAFavoriteKeepsTheVersionOfItsFile) {
    CFavoriteSetting favorite = Favorite("A");
    favorite.FileVer = 1;
    OpenPage({favorite});
    SaveAndAnswer("A", IDYES);
    EXPECT_EQ(Read("A").FileVer, 1u);
}

TEST_F(SavingPresets, OverAFavoriteWritesThePageSizeOfNow) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    ASSERT_STREQ(Read("A").PageSize.data(), "A4");
    Choose(kPageSizes, 0);
    ASSERT_EQ(RowsOf(Control(kPageSizes)).front(), "A3");
    SaveAndAnswer("A", IDYES);
    EXPECT_STREQ(Read("A").PageSize.data(), "A3");
}

TEST_F(SavingPresets, AfterNoChangesNothing) {
    OpenPage({Favorite("A", "for leaflets")});
    ChoosePreset("A");
    ChangeDuplex();
    const std::string file = FileContents(FileOf("A"));
    EXPECT_EQ(SaveAndAnswer("A", IDNO, "typed").text, kOverwrite);
    EXPECT_EQ(FileContents(FileOf("A")), file);
    EXPECT_EQ(Selected(), "<変更>A");
    EXPECT_STREQ(Listed("A").Comment.data(), "for leaflets");
}

TEST_F(SavingPresets, OverAnotherFavoriteThanTheOfferedOneAsksAsWell) {
    OpenPage({Favorite("A"), Favorite("B", "mine")});
    ChoosePreset("A");
    EXPECT_EQ(SaveAndAnswer("B", IDYES).text, kOverwrite);
    EXPECT_EQ(Selected(), "B");
    EXPECT_STREQ(Read("B").Comment.data(), "mine");
}

TEST_F(SavingPresets, UnderAnOfferedNameThatNoFavoriteHasAsksAndMakesANewOne) {
    OpenPage({Favorite("A", "for leaflets")});
    ChoosePreset("A");
    std::filesystem::remove(FileOf("A"));
    Manager().LoadFavoriteSettingList();
    ASSERT_EQ(Manager().Count(), 0u);
    EXPECT_EQ(SaveAndAnswer("A", IDYES, "anew").text, kOverwrite);
    EXPECT_STREQ(Read("A").Comment.data(), "anew");
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
    EXPECT_EQ(Selected(), "A");
}

TEST_F(SavingPresets, ThatIsCancelledChangesNothing) {
    OpenPage();
    ChangeDuplex();
    Save("B", "comment", IDCANCEL);
    EXPECT_FALSE(IsThere("B"));
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準"}));
}

TEST_F(SavingPresets, WithoutASelectedPageSizeAsksForNothing) {
    OpenPage();
    SendMessageA(Control(kPageSizes), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_EQ(Send(kSave, BN_CLICKED), 1);
    EXPECT_EQ(Manager().Count(), 0u);
}

TEST_F(SavingPresets, WithoutAManagerAsksForNothing) {
    OpenPage();
    CSettingManager::Destroy();
    EXPECT_EQ(Send(kSave, BN_CLICKED), 1);
    EXPECT_EQ(CSettingManager::Existing(), nullptr);
}

TEST_F(SavingPresets, OfANewNameThatFailsLeavesRowsSelectionAndList) {
    OpenPage({Favorite("A")});
    ChangeDuplex();
    BlockFile("B");
    SaveAndAnswer("B", IDYES);
    EXPECT_EQ(Presets(), (Texts{"標準", "<変更>標準", "A"}));
    EXPECT_EQ(Selected(), "<変更>標準");
    EXPECT_EQ(Manager().Count(), 1u);
}

TEST_F(SavingPresets, OverAFavoriteThatFailsLeavesItAsItWas) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    ChangeDuplex();
    BlockFile("A");
    SaveAndAnswer("A", IDYES);
    EXPECT_EQ(Selected(), "<変更>A");
    EXPECT_EQ(Get(Listed("A"), FieldId::DuplexMode), Get(Manager().Default(), FieldId::DuplexMode));
    ChangeDuplexBack();
    EXPECT_EQ(Selected(), "A") << "the settings are the old favourite's again";
}

TEST_F(SavingPresets, ThatFailsIsLogged) {
    OpenPage();
    BlockFile("B");
    const MainLog log;
    SaveAndAnswer("B", IDYES);
    const Texts messages = log.Messages();
    EXPECT_EQ(std::ranges::count_if(messages,
                                    [](const std::string& line) {
                                        return line.find("presets.cpp ") != std::string::npos &&
                                               line.ends_with("行目 OnSavePreset SaveFavoriteSetting Error");
                                    }),
              1);
}

// The job may be authenticated while a favourite is saved, whichever way.
TEST_F(SavingPresets, NeverPutsACredentialIntoAFile) {
    OpenPage({Favorite("A")});
    SetCredentials();
    ChoosePreset("A");
    SaveAndAnswer("A", IDYES);
    Save("B", "comment");
    ASSERT_TRUE(IsThere("A"));
    ASSERT_TRUE(IsThere("B"));
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Directory())) {
        const std::string content = FileContents(entry.path().string());
        for (const char* secret :
             {"USER-OF-THE-JOB", "PASSWORD-OF-THE-JOB", "ACCOUNT-OF-THE-JOB", "OF-THE-JOB"})
            EXPECT_EQ(content.find(secret), std::string::npos) << entry.path() << " " << secret;
        ++files;
    }
    EXPECT_EQ(files, 2);
    EXPECT_EQ(Credentials(), "USER-OF-THE-JOB PASSWORD-OF-THE-JOB ACCOUNT-OF-THE-JOB")
        << "the job keeps them";
}

TEST_F(SavingPresets, KeepsTheStandardSettingsCredentialsInTheListAsSet) {
    OpenPage();
    PutText(Manager().Default(), FieldId::AuthJobUserId, "standard user");
    SetCredentials();
    Save("B");
    const CFavoriteSetting& listed = Listed("B");
    EXPECT_EQ(GetText(listed, FieldId::AuthJobUserId), "standard user");
    EXPECT_EQ(GetText(listed, FieldId::AuthJobPassword), "");
    EXPECT_EQ(GetText(listed, FieldId::AuthJobAccount), "");
    for (const FieldId field : {FieldId::AuthJobUserId, FieldId::AuthJobPassword, FieldId::AuthJobAccount})
        EXPECT_EQ(listed.PrintOption().Bytes(ddb::Block::Record)[ddb::FieldAt(field).flag], 1);
}

TEST_F(SavingPresets, IsChosenUnmarkedInTheNextSheetToo) {
    OpenPage();
    ChangeDuplex();
    Save("B");
    DestroyWindow(page);
    OpenPage();
    ChoosePreset("B");
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(Current(keyword::DuplexMode), 1u);
}

TEST_F(DeletingPresets, AfterYesRemovesTheFileAndBringsTheStandardSettings) {
    CFavoriteSetting favorite = Favorite("A");
    Put(favorite, FieldId::NumOfCopies, 3);
    OpenPage({favorite, Favorite("B")});
    ChoosePreset("A");
    const MessageBoxSeen box = Delete(IDYES);
    EXPECT_EQ(box.text, kAskDelete);
    EXPECT_EQ(box.caption, "警告");
    EXPECT_NE(box.icon, nullptr);
    EXPECT_FALSE(IsThere("A"));
    EXPECT_EQ(Presets(), (Texts{"標準", "B"}));
    EXPECT_EQ(Selected(), "標準");
    EXPECT_EQ(Current(keyword::Copies), 1u);
    EXPECT_FALSE(CanDelete());
}

TEST_F(DeletingPresets, AfterNoChangesNothing) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    Delete(IDNO);
    EXPECT_TRUE(IsThere("A"));
    EXPECT_EQ(Selected(), "A");
}

TEST_F(DeletingPresets, OfANameWithoutAFileReadsTheListAnew) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    std::filesystem::remove(FileOf("A"));
    WriteFavorite(Favorite("C"));
    Delete(IDYES);
    EXPECT_EQ(Presets(), (Texts{"標準", "C"}));
    EXPECT_EQ(Selected(), "標準");
}

TEST_F(DeletingPresets, OfAFileThatCannotBeRemovedShowsItStill) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    SetFileAttributesA(FileOf("A").c_str(), FILE_ATTRIBUTE_READONLY);
    Delete(IDYES);
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
    EXPECT_EQ(Selected(), "標準");
}

TEST_F(DeletingPresets, ActsOnlyOnNamesOfTheList) {
    OpenPage({Favorite("A")});
    const std::string outside = Directory() + "\\..\\outside.pfk";
    std::ofstream(outside) << "not a favourite of this list";
    for (const char* text : {"..\\outside", "<変更>A", "outside"}) {
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_TEXT;
        item.iItem = 1;
        item.pszText = const_cast<char*>(text);
        SendMessageA(Control(kPresets), CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        SendMessageA(Control(kPresets), CB_SETCURSEL, 1, 0);
        Delete(IDYES);
        EXPECT_TRUE(std::filesystem::exists(outside)) << text;
        EXPECT_EQ(Presets(), (Texts{"標準", "A"})) << text;
    }
    std::filesystem::remove(outside);
}

TEST_F(DeletingPresets, IsLoggedWhenItIsCancelled) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    const MainLog log;
    Delete(IDNO);
    EXPECT_TRUE(std::ranges::any_of(log.Messages(), [](const std::string& line) {
        return line.find("presets.cpp ") != std::string::npos && line.ends_with("OnDeletePreset() cancelled");
    }));
}

TEST_F(DeletingPresets, LeavesNothingToBeDoneOnceTheSheetHasGoneBehindTheQuestion) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    auto box = AnswerNextMessageBox(IDYES, [] { CSessionAccessor::Instance()->SetSession(nullptr); });
    Send(kDelete, BN_CLICKED);
    box.get();
    EXPECT_TRUE(IsThere("A"));
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
}
