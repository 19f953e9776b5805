// The job owner's fields as they are set, each whole record being compared.
#include "oemps/authentication_data.h"

#include "tests/oemps/guarded_block.h"
#include "tests/oemps/owner_fields.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// Who is logged in, as far as these tests go.
std::string loggedInUser;
int questions;

class AuthenticationData : public testing::Test {
  protected:
    void SetUp() override {
        loggedInUser = "taro";
        questions = 0;
    }

    // Sets the fields of a strange record, and tells what differs from one with `expected`.
    static std::string Set(unsigned mode, std::string_view specified, std::string_view owner,
                           std::string_view password, std::string_view account, const OwnerFields& expected) {
        PrivateDevMode record = StrangeRecord();
        const std::string wanted = With(BytesOf(record), expected);
        if (SetAuthenticationData(record, mode, specified, owner, password, account) != 1)
            return "it did not give 1";
        return Difference(BytesOf(record), wanted);
    }
};

} // namespace

std::string LoggedInUser() {
    ++questions;
    return loggedInUser;
}

TEST_F(AuthenticationData, OfAModeOtherThan0AreTheOwnerThePasswordAndTheAccount) {
    EXPECT_EQ(Set(2, "", "hanako", "secret", "A-17", {2, 1, "hanako", "secret", "A-17"}), "");
    EXPECT_EQ(Set(255, "", "hanako", "secret", "A-17", {255, 1, "hanako", "secret", "A-17"}), "");
    EXPECT_EQ(questions, 0);
}

TEST_F(AuthenticationData, OfMode0AreEmptyWhateverElseIsGiven) {
    EXPECT_EQ(Set(0, "", "hanako", "secret", "A-17", {}), "");
    EXPECT_EQ(Set(0, "LoginName", "hanako", "secret", "A-17", {}), "");
    EXPECT_EQ(questions, 0);
}

TEST_F(AuthenticationData, OfLoginNameAreTheUserWhoIsLoggedIn) {
    EXPECT_EQ(Set(1, "LoginName", "hanako", "secret", "A-17", {1, 0, "taro", "secret", "A-17"}), "");
    EXPECT_EQ(questions, 1);
}

TEST_F(AuthenticationData, OfLoginNameWithoutAUserHaveNone) {
    loggedInUser = "";
    EXPECT_EQ(Set(1, "LoginName", "hanako", "", "", {1, 0, "", "", ""}), "");
}

// All ten bytes of the text count, its NUL among them.
TEST_F(AuthenticationData, TakeNothingButLoginNameForTheUserWhoIsLoggedIn) {
    for (const char* text : {"", "LoginNam", "LoginName2", "LoginName ", "loginname", "Login"})
        EXPECT_EQ(Set(1, text, "hanako", "", "", {1, 1, "hanako", "", ""}), "") << text;
}

TEST_F(AuthenticationData, ThatAreEmptyLoseTheirFirstByteAndKeepTheirTails) {
    PrivateDevMode record{};
    std::strcpy(record.AuthJobUserId, "hanako");
    std::strcpy(record.AuthJobPassword, "secret");
    std::strcpy(record.AuthJobAccount, "A-17");
    ClearAuthenticationData(record);
    EXPECT_EQ(std::string(record.AuthJobUserId, 7), std::string("\0anako\0", 7));
    EXPECT_EQ(std::string(record.AuthJobPassword, 7), std::string("\0ecret\0", 7));
    EXPECT_EQ(std::string(record.AuthJobAccount, 5), std::string("\0-17\0", 5));
}

TEST_F(AuthenticationData, AreClearedWithNothingElseTouched) {
    PrivateDevMode record = StrangeRecord();
    const std::string wanted = With(BytesOf(record), {});
    ClearAuthenticationData(record);
    EXPECT_EQ(Difference(BytesOf(record), wanted), "");
}

TEST_F(AuthenticationData, LongerThanTheirFieldsOverwriteTheFieldsBehind) {
    PrivateDevMode record{};
    SetAuthenticationData(record, 1, "", "hanako", "secret", std::string(255, 'a'));
    EXPECT_STREQ(record.AuthJobUserId, "hanako");
    EXPECT_STREQ(record.AuthJobPassword, "secret");
    // The account's field has 66 bytes, and the tags stand behind it.
    EXPECT_EQ(std::string(record.AuthJobAccount, 66), std::string(66, 'a'));
    EXPECT_STREQ(record.Tags, std::string(255 - 66, 'a').c_str());
}

// The user id is written first, so a password that is empty ends an over-long one there.
TEST_F(AuthenticationData, LongerThanTheirFieldsAreOverwrittenByThoseThatFollow) {
    PrivateDevMode record{};
    SetAuthenticationData(record, 1, "", std::string(255, 'u'), "", "A-17");
    EXPECT_EQ(std::string(record.AuthJobUserId, 66), std::string(66, 'u'));
    EXPECT_STREQ(record.AuthJobPassword, "");
    EXPECT_EQ(std::string(record.AuthJobPassword + 1, 128), std::string(128, 'u'));
    EXPECT_STREQ(record.AuthJobAccount, "A-17");
    EXPECT_EQ(record.AuthJobAccount[5], 'u');
}

TEST_F(AuthenticationData, OfTheLoggedInUserMayBeTooLongAsWell) {
    loggedInUser = std::string(256, 'n');
    EXPECT_EQ(Set(1, "LoginName", "", "", "", {1, 0, std::string(256, 'n'), "", ""}), "");
}

TEST_F(AuthenticationData, Of256BytesHaveNoNul) {
    PrivateDevMode record = StrangeRecord();
    SetAuthenticationData(record, 1, "", "", "", std::string(256, 'a'));
    const std::string bytes = BytesOf(record);
    EXPECT_EQ(bytes.substr(4025, 256), std::string(256, 'a'));
    EXPECT_EQ(bytes[4025 + 256], '\xCD');
}

TEST_F(AuthenticationData, OfMoreThan256BytesEndAfterThem) {
    const std::string tooLong(1000, 'x');
    const std::string whole(256, 'x');
    EXPECT_EQ(Set(1, "", tooLong, tooLong, tooLong, {1, 1, whole, whole, whole}), "");
}

// Its second byte lies behind the end of the field, and is copied with it.
TEST_F(AuthenticationData, DoNotSplitADoubleByteCharacterAtAFieldsEnd) {
    const std::string name = std::string(65, 'u') + "表";
    PrivateDevMode record{};
    SetAuthenticationData(record, 1, "", "", "", name);
    EXPECT_EQ(BytesOf(record).substr(4025, name.size() + 1), name + '\0');
}

TEST_F(AuthenticationData, OfAnyLengthsAreWhatThreeUnboundedCopiesMakeWithinTheRecord) {
    const GuardedBlock block(kDevModeSize);
    auto& record = *reinterpret_cast<PrivateDevMode*>(block.Bytes().data());
    std::mt19937 random(7);
    const auto text = [&](char letter) { return std::string(random() % 258, letter); };
    for (int round = 0; round < 3000; ++round) {
        std::memset(block.Bytes().data(), 0xCD, kDevModeSize);
        const OwnerFields fields{1 + static_cast<unsigned>(random() % 255), 1, text('u'), text('p'),
                                 text('a')};
        const std::string wanted = With(BytesOf(record), fields);
        SetAuthenticationData(record, fields.manageMethod, "", fields.userId, fields.password,
                              fields.account);
        ASSERT_EQ(Difference(BytesOf(record), wanted), "")
            << fields.userId.size() << ' ' << fields.password.size() << ' ' << fields.account.size();
    }
}
