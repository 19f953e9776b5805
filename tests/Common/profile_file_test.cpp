// UpdateProfile on real files.
#include "Common/ProfileInfo.h"

#include "tests/Common/native_folders.h"

#include <sys/stat.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

class Profile : public NativeFolderTest {
  protected:
    std::filesystem::path PathOf(std::string_view name) const {
        return root / "documents/Zephra/KP Controller/Orvane X100/profile" / (std::string(name) + ".cps");
    }
    // Reads a profile of this content.
    int Read(std::string_view content) {
        Write(PathOf("office"), content);
        return profile.UpdateProfile("office");
    }
    std::vector<std::size_t> Marked() const {
        std::vector<std::size_t> marked;
        for (std::size_t slot = 0; slot < profile.m_Item.size(); ++slot)
            if (profile.m_Item[slot].exists == 1)
                marked.push_back(slot);
            else
                EXPECT_EQ(profile.m_Item[slot].exists, 0) << slot;
        return marked;
    }
    // As after a profile that can't be opened.
    void ExpectEverythingFitted() const {
        EXPECT_EQ(Marked().size(), 149u);
        for (int index = 0; index < 20; ++index) {
            std::string name = "old";
            EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, index), 1);
            EXPECT_EQ(name, "");
        }
    }

    CProfileInfo profile;
};

using Slots = std::vector<std::size_t>;

} // namespace

TEST_F(Profile, ThatIsMissingCountsAsFittedWithEverything) {
    EXPECT_EQ(profile.UpdateProfile("missing"), 0);
    ExpectEverythingFitted();
}

TEST_F(Profile, ThatIsEmptyMarksNothing) {
    EXPECT_EQ(Read(""), 1);
    EXPECT_EQ(Marked(), Slots{});
}

TEST_F(Profile, WithACustomPaperNameMarksSlot3AndLeavesTheNameEmpty) {
    EXPECT_EQ(Read("CustomPaperName1=Plain\n"), 1);
    EXPECT_EQ(Marked(), Slots{3});
    EXPECT_EQ(profile.m_Item[29].value, "");
}

TEST_F(Profile, WithAnInputSlotOfNoTrayMarksSlot3AndNoTray) {
    EXPECT_EQ(Read("HasOption_InputSlot\n"), 1);
    EXPECT_EQ(Marked(), Slots{3});
}

TEST_F(Profile, IsReadLineByLineToItsEnd) {
    EXPECT_EQ(Read("HasOption_InputSlot=Tray1\r\nHasOption_InputSlot=Tray3"), 1);
    EXPECT_EQ(Marked(), (Slots{0, 2}));
}

TEST_F(Profile, HoldsAtMostOneItemALine) {
    EXPECT_EQ(Read("HasOption_InputSlot\nTray1\n"), 1);
    EXPECT_EQ(Marked(), Slots{3}) << "name and value on two lines are no item";
}

TEST_F(Profile, EndsAtCtrlZ) {
    EXPECT_EQ(Read("HasOption_InputSlot Tray1\n\x1A\nHasOption_InputSlot Tray2\n"), 1);
    EXPECT_EQ(Marked(), Slots{0});
}

TEST_F(Profile, StartsFromTheTableAtEachReading) {
    EXPECT_EQ(Read("HasOption_InputSlot Tray1\n"), 1);
    profile.m_Item[29].value = "Plain";
    EXPECT_EQ(Read("HasOption_InputSlot Tray2\n"), 1);
    EXPECT_EQ(Marked(), Slots{1});
    EXPECT_EQ(profile.m_Item[29].value, "");
}

TEST_F(Profile, ThatHasDisappearedCountsAsFittedWithEverything) {
    EXPECT_EQ(Read("HasOption_InputSlot Tray1\n"), 1);
    std::filesystem::remove(PathOf("office"));
    EXPECT_EQ(profile.UpdateProfile("office"), 0);
    ExpectEverythingFitted();
}

TEST_F(Profile, OfALineOfAMegabyteIsRead) {
    EXPECT_EQ(Read(std::string(1 << 20, 'H') + "HasOption_InputSlot" + std::string(1 << 20, 'T') + "Tray2"),
              1);
    EXPECT_EQ(Marked(), Slots{1});
}

TEST_F(Profile, OfThousandsOfLinesIsRead) {
    std::string content;
    for (int i = 0; i < 20000; ++i)
        content += "Watermark" + std::to_string(i) + "=x\n";
    EXPECT_EQ(Read(content + "HasOption_InputSlot Tray1\n"), 1);
    EXPECT_EQ(Marked(), (Slots{0, 3}));
}

TEST_F(Profile, MayHoldNulAndAnyByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != 0x1A)
            bytes.push_back(static_cast<char>(byte));
    EXPECT_EQ(Read(bytes + "\0HasOption_InputSlot\0\xFF\x95Tray3"s), 1);
    EXPECT_EQ(Marked(), (Slots{2, 3}));
}

TEST_F(Profile, ThatIsADirectoryCannotBeOpened) {
    std::filesystem::create_directories(PathOf("office"));
    EXPECT_EQ(profile.UpdateProfile("office"), 0);
    ExpectEverythingFitted();
}

TEST_F(Profile, ThatIsAPipeCannotBeOpened) {
    std::filesystem::create_directories(PathOf("office").parent_path());
    ASSERT_EQ(mkfifo(PathOf("office").c_str(), 0666), 0);
    EXPECT_EQ(profile.UpdateProfile("office"), 0);
    ExpectEverythingFitted();
}

TEST_F(Profile, ThatMayNotBeReadCannotBeOpened) {
    Write(PathOf("office"), "HasOption_InputSlot Tray1\n");
    Forbid(PathOf("office"));
    const OrdinaryUser user;
    if (!user.IsOrdinary())
        GTEST_SKIP() << "the superuser can't become another user here";
    EXPECT_EQ(profile.UpdateProfile("office"), 0);
    ExpectEverythingFitted();
}

TEST_F(Profile, WithoutANameCannotBeOpened) {
    EXPECT_EQ(profile.UpdateProfile(nullptr), 0);
    ExpectEverythingFitted();
}

TEST_F(Profile, OfAnEmptyNameIsTheFileOfTheExtensionAlone) {
    Write(PathOf(""), "");
    EXPECT_EQ(profile.UpdateProfile(""), 1);
}

TEST_F(Profile, HasANameInDoubleByteCharacters) {
    // 0x95 0x5C: the second byte is a backslash.
    Write(PathOf("\x95\x5C"), "HasOption_InputSlot Tray2\n");
    EXPECT_EQ(profile.UpdateProfile("\x95\x5C"), 1);
    EXPECT_EQ(Marked(), Slots{1});
}

TEST_F(Profile, OfAPathOf259BytesIsReadAndOfOneMoreIsNot) {
    const std::string fixed = PathOf("").string();
    for (const std::size_t length : {259u, 260u}) {
        const std::string name(length - fixed.size(), 'n');
        Write(PathOf(name), "");
        EXPECT_EQ(profile.UpdateProfile(name.c_str()), length == 259 ? 1 : 0) << length;
    }
}

TEST_F(Profile, OfAPathThatIsCutOpensNoOtherFile) {
    const std::string fixed = PathOf("").string();
    const std::size_t left = 259 - (fixed.size() - 4);
    // What the path would be if it were cut: the extension of the file that is there ends it.
    const std::string other = std::string(left - 4, 'n');
    Write(PathOf(other), "");
    EXPECT_EQ(profile.UpdateProfile(other.c_str()), 1);
    EXPECT_EQ(profile.UpdateProfile((other + ".cpsx").c_str()), 0);
    ExpectEverythingFitted();
    EXPECT_EQ(profile.UpdateProfile(std::string(100000, 'n').c_str()), 0);
}

// The start of the table leaves the texts of the empty slots alone; with names of their own these take no
// line, so that lines reach the slots behind them.
TEST_F(Profile, LetsTheErrorOfALineThatEndsWithATextsNameOutAndKeepsTheLinesBeforeIt) {
    for (const std::size_t slot : {3, 5, 8, 9, 12, 13, 14, 15, 16, 17})
        profile.m_Item[slot].name = "\x01";
    try {
        Read("CustomPaperName2=Plain\nWatermark1\n");
        ADD_FAILURE() << "no error";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid string position");
    }
    for (std::size_t slot = 29; slot < 149; ++slot)
        EXPECT_EQ(profile.m_Item[slot].value, slot == 30 ? "Plain" : "") << slot;
    EXPECT_EQ(Marked(), Slots{});
}

TEST_F(Profile, WithoutItsFolderCannotBeOpened) {
    Write(PathOf("office"), "");
    platform_files::Folders().commonDocuments.clear();
    EXPECT_EQ(profile.UpdateProfile("office"), 0);
    ExpectEverythingFitted();
}

TEST(CustomPaperNames, AreTheValuesFromSlot29On) {
    CProfileInfo profile;
    profile.InitProfile();
    for (std::size_t slot = 0; slot < profile.m_Item.size(); ++slot)
        profile.m_Item[slot].value = "value " + std::to_string(slot);
    for (int index = 0; index < 20; ++index) {
        std::string name;
        EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, index), 1);
        EXPECT_EQ(name, "value " + std::to_string(29 + index));
    }
}

// There is no bound at the 20 names; what follows them in the table is given as well.
TEST(CustomPaperNames, GoOnWithTheSlotsBehindThemToTheTablesEnd) {
    CProfileInfo profile;
    profile.m_Item[49].value = "first behind";
    profile.m_Item[148].value = "last";
    std::string name;
    EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, 20), 1);
    EXPECT_EQ(name, "first behind");
    EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, 119), 1);
    EXPECT_EQ(name, "last");
    for (const int index : {120, 121, 2147483647}) {
        EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, index), 0) << index;
        EXPECT_EQ(name, "last");
    }
}

TEST(CustomPaperNames, AreNotGivenForANegativeIndexOrToNowhere) {
    const CProfileInfo profile;
    std::string name = "kept";
    EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, -1), 0);
    EXPECT_EQ(profile.GetCustomPaperNameConfig(&name, -2147483647 - 1), 0);
    EXPECT_EQ(name, "kept");
    EXPECT_EQ(profile.GetCustomPaperNameConfig(nullptr, 0), 0);
}

TEST(ProfileInfo, StartsWithEmptyItemsAndNoRecords) {
    const CProfileInfo profile;
    ASSERT_EQ(profile.m_Item.size(), 149u);
    for (const ProfileItem& item : profile.m_Item) {
        EXPECT_EQ(item.name, "");
        EXPECT_EQ(item.type, 0);
        EXPECT_EQ(item.value, "");
        EXPECT_EQ(item.exists, 0);
    }
    EXPECT_TRUE(profile.m_FeederInfo.All().empty());
    EXPECT_TRUE(profile.m_StackerInfo.All().empty());
    EXPECT_TRUE(profile.m_FinisherInfo.All().empty());
}
