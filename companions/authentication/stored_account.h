// The user's account for the jobs of one printer: four values of a key below HKEY_CURRENT_USER.
#pragma once

#include "companions/common/key_change.h"
#include "companions/common/secret_buffer.h"

#include <string>

// As it is shown: what its readers can't read is empty. The password itself is left where it is.
struct StoredAccount {
    bool isLoginOwner = true;
    std::string owner;
    std::string account;
    bool hasPassword = false; // one that is not empty
};

// Throws std::bad_alloc.
StoredAccount ReadAccount(const char* key);

struct NewText {
    SecretBuffer<char> text;
    bool isEntered = true; // else what is stored stays, and the text is for where nothing is
};

struct NewAccount {
    bool isLoginOwner = true;
    NewText owner;
    NewText password;
    NewText account;
};

// All four values belong together: the readers take one that is missing for an account that is missing. So
// those that the user left alone are stored too where the readers find none.
void WriteAccount(KeyChange& change, const NewAccount& account);
