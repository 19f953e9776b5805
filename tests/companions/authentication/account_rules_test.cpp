#include "companions/authentication/account_rules.h"

#include "oemps/authentication_data.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Limit {
    AccountText text;
    std::size_t mostBytes;
    bool isRequired;
};

class AccountRule : public testing::TestWithParam<Limit> {};

INSTANTIATE_TEST_SUITE_P(All, AccountRule,
                         testing::Values(Limit{AccountText::UserId, 65, true},
                                         Limit{AccountText::LoginName, 65, true},
                                         Limit{AccountText::Password, 128, false},
                                         Limit{AccountText::Account, 65, false}));

TEST_P(AccountRule, AllowsWhatItsFieldOfTheRecordHolds) {
    const TextRule rule = RuleOf(GetParam().text);
    EXPECT_EQ(FaultOf(std::string(GetParam().mostBytes, 'a'), rule), TextFault::None);
    EXPECT_EQ(FaultOf(std::string(GetParam().mostBytes + 1, 'a'), rule), TextFault::TooLong);
}

TEST_P(AccountRule, RequiresOnlyAName) {
    EXPECT_EQ(FaultOf("", RuleOf(GetParam().text)),
              GetParam().isRequired ? TextFault::Missing : TextFault::None);
}

TEST(SpecifiedName, IsAnotherTextThanThatOfTheLoginName) {
    EXPECT_EQ(kSpecifiedName, "SpecifyName");
    EXPECT_NE(kSpecifiedName, kLoginName);
}

} // namespace
