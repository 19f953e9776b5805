// Choosing a favourite or the standard settings on the standard page.
#include "Common/text.h"
#include "pages/standardpage.h"
#include "session/session.h"
#include "tests/pages/modal_dialog.h"
#include "tests/pages/presets_fixture.h"

#include <random>

namespace {

using Texts = std::vector<std::string>;

constexpr char kCredentials[] = "USER-OF-THE-JOB PASSWORD-OF-THE-JOB ACCOUNT-OF-THE-JOB";

class ChoosingPresets : public PresetsTest {
  protected:
    // A favourite with three copies, on both sides, without colour and with a comment of its own.
    static CFavoriteSetting Rich(std::string_view name) {
        CFavoriteSetting favorite = Favorite(name);
        Put(favorite, FieldId::NumOfCopies, 3);
        Put(favorite, FieldId::DuplexMode, Get(favorite, FieldId::DuplexMode) + 1);
        PutText(favorite, FieldId::UserComment, "of the favourite");
        return favorite;
    }
    static std::string UserComment() {
        char text[1024] = {};
        ExportedFunc_GetUserComment(text);
        return text;
    }
    // A custom page of 1000 by 2000 that lies in this direction.
    static CFavoriteSetting WithCustomPage(std::int32_t direction) {
        CFavoriteSetting favorite = Favorite("A");
        Put(favorite, FieldId::CustomPaperWidth, 1000);
        Put(favorite, FieldId::CustomPaperHeight, 2000);
        Put(favorite, FieldId::CustomPaperDirection, direction);
        return favorite;
    }
    static std::vector<std::uint32_t> CustomPage() {
        return {Current(keyword::CustomPaperWidth), Current(keyword::CustomPaperHeight),
                Current(keyword::CustomPaperDirection)};
    }
    std::string PageSizeText() const {
        const int row = Row(kPageSizes);
        return row < 0 ? "" : RowsOf(Control(kPageSizes)).at(static_cast<std::size_t>(row));
    }
};

} // namespace

TEST_F(ChoosingPresets, BringsTheFavoritesSettingsIntoTheBankTheStoreAndTheControls) {
    OpenPage({Rich("A")});
    ChoosePreset("A");
    EXPECT_EQ(Current(keyword::Copies), 3u);
    EXPECT_EQ(Current(keyword::DuplexMode), 1u);
    EXPECT_EQ(UserComment(), "of the favourite");
    EXPECT_EQ(CaptionOf(page, 6004), "3");
    EXPECT_EQ(Row(6010), 1);
}

TEST_F(ChoosingPresets, LeavesTheFavoriteUnmarkedAndReadyToBeDeleted) {
    OpenPage({Rich("A"), Favorite("B")});
    ChoosePreset("A");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Selected(), "A");
    EXPECT_TRUE(CanDelete());
}

TEST_F(ChoosingPresets, BringsTheStandardSettingsBackAndForbidsToDeleteThem) {
    OpenPage({Rich("A")});
    const CurrentBank standard = WholeBank();
    const std::string comment = UserComment();
    ChoosePreset("A");
    ASSERT_NE(WholeBank(), standard);
    ChoosePreset("標準");
    EXPECT_EQ(WholeBank(), standard);
    EXPECT_EQ(UserComment(), comment);
    EXPECT_EQ(Row(6010), 0);
    EXPECT_EQ(Presets(), (Texts{"標準", "A"}));
    EXPECT_FALSE(CanDelete());
}

TEST_F(ChoosingPresets, TakesTheMarkOfTheSettingsThatWereLeft) {
    OpenPage({Rich("A"), Favorite("B")});
    ChangeDuplex();
    ASSERT_EQ(Presets(), (Texts{"標準", "<変更>標準", "A", "B"}));
    ChoosePreset("B");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(Current(keyword::DuplexMode), 0u);
    ChangeDuplex();
    ChoosePreset("標準");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
}

TEST_F(ChoosingPresets, RunsOnBothNotificationsWithTheSameResult) {
    OpenPage({WithCustomPage(0)});
    SendMessageA(Control(kPresets), CB_SETCURSEL, 1, 0);
    EXPECT_EQ(Send(kPresets, CBN_SELENDOK), 1);
    const CurrentBank first = WholeBank();
    const Texts rows = Presets();
    EXPECT_EQ(Send(kPresets, CBN_CLOSEUP), 1);
    EXPECT_EQ(WholeBank(), first);
    EXPECT_EQ(Presets(), rows);
    EXPECT_EQ(Selected(), "A");
}

TEST_F(ChoosingPresets, TellsTheSheetOfItByTheNotificationOfTheSelectionAlone) {
    OpenPage({Rich("A")});
    ChoosePreset("A");
    EXPECT_EQ(ChangesSeen(), 0);
    EXPECT_EQ(Send(kPresets, CBN_SELCHANGE), 1);
    EXPECT_EQ(ChangesSeen(), 1);
}

TEST_F(ChoosingPresets, ByTheKeyboardGoesFromRowToRowPastTheMarkedOne) {
    OpenPage({Rich("A"), Favorite("B")});
    ChangeDuplex();
    ASSERT_EQ(Selected(), "<変更>標準");
    const auto combo = reinterpret_cast<HWND>(SendMessageA(Control(kPresets), CBEM_GETCOMBOCONTROL, 0, 0));
    SetFocus(combo);
    SendMessageA(combo, WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Current(keyword::Copies), 3u);
    EXPECT_EQ(ChangesSeen(), 2) << "one of the duplex mode, one of the favourite";
    SendMessageA(combo, WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(Current(keyword::Copies), 1u);
    SendMessageA(combo, WM_KEYDOWN, VK_UP, 1);
    SendMessageA(combo, WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(Selected(), "標準");
}

TEST_F(ChoosingPresets, FromTheOpenListTakesTheRowThatIsPicked) {
    OpenPage({Rich("A"), Favorite("B")});
    ChangeDuplex();
    const auto combo = reinterpret_cast<HWND>(SendMessageA(Control(kPresets), CBEM_GETCOMBOCONTROL, 0, 0));
    SetFocus(combo);
    SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageA(combo, WM_KEYDOWN, VK_DOWN, 1);
    SendMessageA(combo, WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_FALSE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
    EXPECT_EQ(Current(keyword::Copies), 3u);
}

TEST_F(ChoosingPresets, KeepsTheCredentialsOfTheMoment) {
    CFavoriteSetting favorite = Rich("A");
    OpenPage({favorite});
    SetCredentials();
    ChoosePreset("A");
    EXPECT_EQ(Credentials(), kCredentials);
    EXPECT_EQ(Current(keyword::Copies), 3u);
    ChoosePreset("標準");
    EXPECT_EQ(Credentials(), kCredentials);
}

TEST_F(ChoosingPresets, CountsTheCredentialsAsSet) {
    OpenPage({Favorite("A")});
    ChoosePreset("A");
    const auto record = Manager().Current().PrintOption().Bytes(ddb::Block::Record);
    for (const FieldId field : {FieldId::AuthJobUserId, FieldId::AuthJobPassword, FieldId::AuthJobAccount})
        EXPECT_EQ(record[ddb::FieldAt(field).flag], 1) << ddb::FieldAt(field).name;
}

TEST_F(ChoosingPresets, OfAMarkedTextCopiesNothing) {
    OpenPage({Rich("A")});
    ChoosePreset("A");
    Choose(6010, 2);
    ASSERT_EQ(Selected(), "<変更>A");
    const CurrentBank changed = WholeBank();
    ChoosePreset("<変更>A");
    EXPECT_EQ(WholeBank(), changed);
    EXPECT_EQ(Selected(), "<変更>A");
    EXPECT_FALSE(CanDelete());
}

TEST_F(ChoosingPresets, TakesTheFormThatHasTheNameOfTheFavoritesPageSizeNow) {
    CFavoriteSetting favorite = Favorite("A");
    CopyText(favorite.PageSize, "A3");
    Put(favorite, FieldId::PageSize, 0);
    OpenPage({favorite});
    ChoosePreset("A");
    EXPECT_EQ(Current(keyword::PageSize), 2u);
    EXPECT_EQ(PageSizeText(), "A3");
    EXPECT_EQ(Selected(), "A") << "the form's number is no change";
}

TEST_F(ChoosingPresets, TakesTheCustomFormForAPageSizeThatIsNotAmongTheForms) {
    CFavoriteSetting favorite = Favorite("A");
    CopyText(favorite.PageSize, "Tabloid");
    OpenPage({favorite});
    ASSERT_EQ(CStandardPageDlg::m_customPageSizeIndex, 3);
    ChoosePreset("A");
    EXPECT_EQ(Current(keyword::PageSize), 3u);
    EXPECT_EQ(Selected(), "A");
}

TEST_F(ChoosingPresets, LeavesTheValueOfAFavoriteWithoutAPageSizeNameAlone) {
    CFavoriteSetting favorite = Favorite("A");
    favorite.PageSize = {};
    Put(favorite, FieldId::PageSize, 2);
    OpenPage({favorite});
    ChoosePreset("A");
    EXPECT_EQ(Current(keyword::PageSize), 2u);
}

TEST_F(ChoosingPresets, LeavesThePageSizeAloneWhereThePrinterHasNoForms) {
    CFavoriteSetting favorite = Favorite("A");
    CopyText(favorite.PageSize, "Tabloid");
    Put(favorite, FieldId::PageSize, 2);
    OpenPage({favorite});
    SendMessageA(Control(kPageSizes), CB_RESETCONTENT, 0, 0);
    CStandardPageDlg::m_customPageSizeIndex = -1;
    ChoosePreset("A");
    EXPECT_EQ(Current(keyword::PageSize), 2u);
}

TEST_F(ChoosingPresets, TurnsACustomPageThatLiesInADirectionOtherThan1And3) {
    for (const std::int32_t direction : {0, 2, 4, 99, -1}) {
        OpenPage({WithCustomPage(direction)});
        ChoosePreset("A");
        EXPECT_EQ(CustomPage(), (std::vector<std::uint32_t>{2000, 1000, 1})) << direction;
        EXPECT_EQ(Selected(), "A") << "the turned page is no change";
    }
}

TEST_F(ChoosingPresets, LeavesACustomPageThatLiesInDirection1Or3) {
    for (const std::int32_t direction : {1, 3}) {
        OpenPage({WithCustomPage(direction)});
        ChoosePreset("A");
        EXPECT_EQ(CustomPage(),
                  (std::vector<std::uint32_t>{1000, 2000, static_cast<std::uint32_t>(direction)}));
    }
}

// The custom page of a fresh sheet lies in direction 0.
TEST_F(ChoosingPresets, LeavesTheCustomPageOfTheStandardSettingsAsItIs) {
    OpenPage();
    ChoosePreset("標準");
    EXPECT_EQ(CustomPage(), (std::vector<std::uint32_t>{210002, 297000, 0}));
    EXPECT_EQ(Selected(), "標準");
}

TEST_F(ChoosingPresets, KeepsTheScaleUsableAlsoWithoutStandardSettings) {
    OpenPage({Rich("A")});
    EXPECT_EQ(Current(keyword::Scale), 100u);
    ExportedFunc_SetCurrent(keyword::Scale, 50);
    ChoosePreset("標準");
    EXPECT_EQ(Current(keyword::Scale), 100u);
    ExportedFunc_SetCurrent(keyword::Scale, 50);
    ChoosePreset("A");
    EXPECT_EQ(Current(keyword::Scale), 100u);
    Manager().Default().PrintOption().Clear();
    ExportedFunc_SetCurrent(keyword::Scale, 50);
    ChoosePreset("標準");
    EXPECT_EQ(Current(keyword::Scale), 100u);
}

TEST_F(ChoosingPresets, WithoutAManagerChangesNoSetting) {
    OpenPage({Rich("A")});
    CSettingManager::Destroy();
    const CurrentBank bank = WholeBank();
    ChoosePreset("A");
    ChoosePreset("標準");
    EXPECT_EQ(WholeBank(), bank);
}

// What the dialog of the favourites is left with.
TEST_F(ChoosingPresets, OfTheDialogOfTheFavoritesTakesTheOneThatItsOkNames) {
    OpenPage({Rich("A"), Favorite("B")});
    ChoosePreset("A");
    const ModalDialog user({[](HWND dialog) { ClickButton(dialog, IDOK); }});
    EXPECT_EQ(Send(kFiles, BN_CLICKED), 1);
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(Current(keyword::Copies), 3u);
}

TEST_F(ChoosingPresets, OfACancelledDialogOfTheFavoritesTakesTheSelectedOneAgain) {
    OpenPage({Rich("A"), Favorite("B")});
    ChoosePreset("A");
    const ModalDialog user({[](HWND dialog) { ClickButton(dialog, IDCANCEL); }});
    EXPECT_EQ(Send(kFiles, BN_CLICKED), 1);
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(Presets(), (Texts{"標準", "A", "B"}));
}

// A marked text has no row of its own behind the dialog, and what has no row selects row 0.
TEST_F(ChoosingPresets, OfACancelledDialogOfTheFavoritesOnAMarkedRowTakesTheStandardSettings) {
    OpenPage({Rich("A")});
    ChoosePreset("A");
    ChangeDuplexBack();
    ASSERT_EQ(Selected(), "<変更>A");
    const ModalDialog user({[](HWND dialog) { ClickButton(dialog, IDCANCEL); }});
    EXPECT_EQ(Send(kFiles, BN_CLICKED), 1);
    EXPECT_EQ(Selected(), "標準");
    EXPECT_EQ(Current(keyword::Copies), 1u);
}

// Favourites from elsewhere may hold anything. With each, all of the page runs and all goes to the driver's
// items and the private DEVMODE.
class AbsurdPresets : public ChoosingPresets {
  protected:
    static CFavoriteSetting Filled(std::string_view name, const std::function<std::int64_t()>& number,
                                   const std::function<std::string(std::size_t width)>& text) {
        CFavoriteSetting favorite = Favorite(name);
        for (const ddb::FieldDescriptor& field : ddb::kFields) {
            if (field.IsText())
                ddb::SetText(favorite.PrintOption(), field, text(field.width));
            else if (field.width == 8)
                ddb::SetI64(favorite.PrintOption(), field, number());
            else
                ddb::SetI32(favorite.PrintOption(), field, static_cast<std::int32_t>(number()));
        }
        return favorite;
    }
    void ChooseAndApply(const CFavoriteSetting& favorite) {
        OpenPage();
        Manager().AddFavorite(favorite);
        CStandardPageDlg(page, ProcessProfile()).UpdatePresetCombo();
        ChoosePreset("absurd");
        EXPECT_TRUE(IsWindow(page));
        for (const int combo : {5000, 5001, 5002, 6010, 1291, 6014, 1281, 1277, 1257, 1273, 1155, 1156, 1300})
            EXPECT_LT(Row(combo), RowCount(combo)) << combo;
        CSession(&block).ApplyAll();
        for (int keyword = 0; keyword < kKeywordCount; ++keyword) {
            const bool isWide = keyword == keyword::CustomPaperWidth || keyword == keyword::CustomPaperHeight;
            if (!isWide) {
                EXPECT_LE(Current(keyword), 0xFFFFu) << keyword;
            }
        }
        ChoosePreset("標準");
        EXPECT_EQ(Current(keyword::Copies), 1u);
    }
};

TEST_F(AbsurdPresets, WithTheSameExtremeNumberInEveryFieldAreTaken) {
    for (const std::int64_t number :
         {std::int64_t{-1}, std::int64_t{0x7FFFFFFF}, std::int64_t{-0x80000000LL}, std::int64_t{0xFFFF},
          std::int64_t{0x10000}, std::int64_t{0x7FFFFFFFFFFFFFFF}, std::int64_t{22}})
        ChooseAndApply(Filled(
            "absurd", [=] { return number; },
            [](std::size_t width) { return std::string(width + 9, '\x83'); }));
}

TEST_F(AbsurdPresets, WithRandomBytesInEveryFieldAreTaken) {
    std::mt19937_64 random(20260706);
    for (int round = 0; round < 6; ++round)
        ChooseAndApply(Filled(
            "absurd", [&] { return static_cast<std::int64_t>(random()); },
            [&](std::size_t width) {
                std::string text(random() % (2 * width), '\0');
                for (char& one : text)
                    one = static_cast<char>(random() % 255 + 1);
                return text;
            }));
}

class PresetWithoutRows : public AbsurdPresets {
  protected:
    static constexpr int kPunch = 1155;
    static constexpr int kLists[] = {5000, 5001, 5002, 6010, 1291, 6014, 1281, 1277, 1257, 1273, 1156};

    // Chooses a favourite that has a row for none of the page's lists.
    void ChooseIt() {
        OpenPage();
        CFavoriteSetting favorite = Favorite("absurd");
        favorite.PageSize = {};
        for (const FieldId field :
             {FieldId::PageSize, FieldId::ChgPrintPaperSizeType, FieldId::FittenToPaper, FieldId::DuplexMode,
              FieldId::ColorMode, FieldId::NUP, FieldId::Tray, FieldId::OutputTray, FieldId::OffsetMode,
              FieldId::StapleMode, FieldId::Punch, FieldId::PunchHoles, FieldId::Fold})
            Put(favorite, field, 4711);
        Manager().AddFavorite(favorite);
        CStandardPageDlg(page, ProcessProfile()).UpdatePresetCombo();
        SendMessageA(Control(kPunch), CB_SETCURSEL, 2, 0);
        for (const int combo : kLists)
            SendMessageA(Control(combo), CB_SETCURSEL, 1, 0);
        ChoosePreset("absurd");
    }
};

TEST_F(PresetWithoutRows, ShowsNoneButKeepsThePunchsRow) {
    ChooseIt();
    for (const int combo : kLists)
        EXPECT_EQ(Row(combo), -1) << combo;
    EXPECT_EQ(Row(kPunch), 2);
}

TEST_F(PresetWithoutRows, LeavesTheBankAloneWhenThePageIsSaved) {
    ChooseIt();
    ExportedFunc_SetActive(page);
    const CurrentBank bank = WholeBank();
    CStandardPageDlg(page, ProcessProfile()).SaveData();
    EXPECT_EQ(WholeBank(), bank);
}
