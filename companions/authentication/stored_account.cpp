#include "companions/authentication/stored_account.h"

#include "Common/log.h"
#include "Common/text.h"
#include "companions/authentication/account_rules.h"
#include "oemps/authentication_data.h"
#include "oemps/owner_values.h"

namespace {

// A value as its readers take it: of any type, but what does not fit their
// buffers is not there.
class FoundValue {
  public:
    FoundValue(HKEY key, const char* name) : m_bytes(kOwnerTextSize) {
        DWORD size = static_cast<DWORD>(m_bytes.Units().size());
        m_isRead =
            key && RegQueryValueExA(key, name, nullptr, nullptr,
                                    reinterpret_cast<BYTE*>(m_bytes.Units().data()), &size) == ERROR_SUCCESS;
        m_bytes.Shorten(m_isRead ? size : 0);
    }

    bool IsRead() const { return m_isRead; }
    std::string_view Text() const { return FieldText(m_bytes.Units()); }

  private:
    SecretBuffer<char> m_bytes;
    bool m_isRead = false;
};

// Whoever the kind says that it is, jobs carry the stored name.
bool IsLoginOwner(std::string_view kind, std::string_view owner) {
    return owner.empty() || (kind == kLoginName && owner == LoggedInUser());
}

void SetText(KeyChange& change, const char* name, std::span<const char> text, bool isEntered) {
    if (isEntered || !FoundValue(change.Key(), name).IsRead())
        change.SetText(name, text);
}

} // namespace

StoredAccount ReadAccount(const char* path) {
    UniqueRegistryKey key;
    if (const LSTATUS status = RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_QUERY_VALUE, key.Receive()))
        ZR_LOG("RegOpenKeyEx=%ld\n", status);
    StoredAccount account;
    account.owner = FoundValue(key.Get(), owner_values::kOwner).Text();
    account.isLoginOwner =
        IsLoginOwner(FoundValue(key.Get(), owner_values::kSpecifyOwner).Text(), account.owner);
    account.account = FoundValue(key.Get(), owner_values::kAccount).Text();
    account.hasPassword = !FoundValue(key.Get(), owner_values::kPassword).Text().empty();
    return account;
}

void WriteAccount(KeyChange& change, const NewAccount& account) {
    const std::string_view kind = account.isLoginOwner ? kLoginName : kSpecifiedName;
    SetText(change, owner_values::kSpecifyOwner, kind, account.owner.isEntered);
    SetText(change, owner_values::kOwner, account.owner.text.Units(), account.owner.isEntered);
    SetText(change, owner_values::kPassword, account.password.text.Units(), account.password.isEntered);
    SetText(change, owner_values::kAccount, account.account.text.Units(), account.account.isEntered);
}
