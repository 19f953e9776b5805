// What an account may be, so that it fits the record of a job that it is laid over.
#pragma once

#include "companions/common/entered_text.h"
#include "oemps/devmode.h"

#include <string_view>

// Stands for "the owner has the name that is stored", as any text but kLoginName does.
inline constexpr std::string_view kSpecifiedName = "SpecifyName";

// The name of the user who is logged in is one that the user did not enter.
enum class AccountText { UserId, LoginName, Password, Account };

constexpr TextRule RuleOf(AccountText text) {
    switch (text) {
    case AccountText::UserId:
    case AccountText::LoginName: return {sizeof(PrivateDevMode::AuthJobUserId) - 1, true};
    case AccountText::Password: return {sizeof(PrivateDevMode::AuthJobPassword) - 1};
    case AccountText::Account: return {sizeof(PrivateDevMode::AuthJobAccount) - 1};
    }
    return {};
}
