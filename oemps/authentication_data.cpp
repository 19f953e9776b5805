#include "oemps/authentication_data.h"

#include "Common/log.h"

#include <algorithm>
#include <span>

namespace {

// The field's width is no limit, so a long text lies over the fields behind. A text of kOwnerTextSize bytes
// gets no NUL.
void CopyOwnerText(PrivateDevMode& record, std::size_t offset, std::string_view text) {
    const std::span<char, kDevModeSize> bytes(reinterpret_cast<char*>(&record), kDevModeSize);
    const std::span<char> target = bytes.subspan(offset, kOwnerTextSize);
    const std::string_view whole = text.substr(0, target.size());
    const auto end = std::ranges::copy(whole, target.begin()).out;
    if (end != target.end())
        *end = '\0';
}

// In this order: a long text is cut by the fields that are written after it.
void CopyOwnerTexts(PrivateDevMode& record, std::string_view user, std::string_view password,
                    std::string_view account) {
    static_assert(offsetof(PrivateDevMode, AuthJobAccount) + kOwnerTextSize <= kDevModeSize);
    CopyOwnerText(record, offsetof(PrivateDevMode, AuthJobUserId), user);
    CopyOwnerText(record, offsetof(PrivateDevMode, AuthJobPassword), password);
    CopyOwnerText(record, offsetof(PrivateDevMode, AuthJobAccount), account);
}

} // namespace

int SetAuthenticationData(PrivateDevMode& record, std::uint32_t mode, std::string_view specified,
                          std::string_view owner, std::string_view password, std::string_view account) {
    ZR_LOG_ENTRY();
    if (mode == 0) {
        ClearAuthenticationData(record);
        return 1;
    }
    record.ManageMethod = mode;
    const bool isLoggedInUser = specified == kLoginName;
    record.SpecifyJobOwnerName = isLoggedInUser ? 0 : 1;
    if (isLoggedInUser)
        CopyOwnerTexts(record, LoggedInUser(), password, account);
    else
        CopyOwnerTexts(record, owner, password, account);
    return 1;
}

void ClearAuthenticationData(PrivateDevMode& record) {
    record.ManageMethod = 0;
    record.SpecifyJobOwnerName = 0;
    CopyOwnerTexts(record, "", "", "");
}
