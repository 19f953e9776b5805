#include "companions/authentication/authentication_dialog.h"

#include "Common/strings.h"
#include "companions/authentication/account_rules.h"
#include "companions/authentication/authentication_resource.h"
#include "companions/common/edit_text.h"
#include "companions/common/messages.h"
#include "companions/common/printer_state.h"
#include "companions/common/raw_value.h"
#include "companions/common/wide_text.h"
#include "datamanager/printer_settings.h"
#include "oemps/authentication_data.h"
#include "oemps/manage_method.h"
#include "oemps/owner_values.h"

#include <algorithm>

namespace {

enum class TextId : unsigned {
#define ZR_COMPANION_TEXT(name, number, text) name = number,
#include "companions/authentication/authentication_texts.def"
#undef ZR_COMPANION_TEXT
};

std::string Text(TextId text) {
    return LoadText(static_cast<unsigned>(text));
}

// Only a name may not be missing.
struct FaultTexts {
    TextId tooLong;
    TextId character;
    TextId missing = TextId();
};

FaultTexts FaultTextsOf(AccountText text) {
    switch (text) {
    case AccountText::UserId: return {TextId::UserIdTooLong, TextId::UserIdCharacter, TextId::UserIdMissing};
    case AccountText::LoginName:
        return {TextId::LoginNameTooLong, TextId::LoginNameCharacter, TextId::LoginNameMissing};
    case AccountText::Password: return {TextId::PasswordTooLong, TextId::PasswordCharacter};
    case AccountText::Account: return {TextId::AccountTooLong, TextId::AccountCharacter};
    }
    return {};
}

std::string TextOfFault(AccountText text, TextFault fault) {
    const FaultTexts texts = FaultTextsOf(text);
    switch (fault) {
    case TextFault::None: break;
    case TextFault::Missing: return Text(texts.missing);
    case TextFault::TooLong: return WithByteLimit(Text(texts.tooLong), RuleOf(text).mostBytes);
    case TextFault::ControlCharacter: return Text(texts.character);
    }
    return {};
}

std::string_view View(const SecretBuffer<char>& text) {
    return {text.Units().data(), text.Units().size()};
}

// What stands in the password's edit while the stored password stays. The code point is no character, so that
// it can't be part of what a user types.
constexpr wchar_t kPlaceholderUnit = 0xFDD0;
constexpr std::size_t kPlaceholderLength = 8;

// More than a password may have, so that one that is too long is told rather than cut. The edit's buffers
// have room for it from the start: one that grew would leave its text behind in memory that was given back.
constexpr std::size_t kMostPasswordUnits = 1024;

NewText StoredText(std::string_view text) {
    NewText stored{SecretBuffer<char>(text.size()), false};
    std::ranges::copy(text, stored.text.Units().begin());
    return stored;
}

} // namespace

int AuthenticationDialog::OnInit() {
    m_stored = ReadAccount(m_key.c_str());
    m_isOnStored = ReadManageMethod(m_printer).value_or(ManageMethod{}).mode != 0;
    ShowMode();
    ShowAccount();
    // A radio button that is not checked would take the focus for a click.
    if (m_canSetMode)
        return m_isOnStored ? IDC_MODE_ON : IDC_MODE_OFF;
    return m_stored.isLoginOwner ? IDC_OWNER_LOGIN : IDC_OWNER_SPECIFIED;
}

void AuthenticationDialog::ShowMode() {
    CheckRadioButton(m_dialog, IDC_MODE_OFF, IDC_MODE_ON, m_isOnStored ? IDC_MODE_ON : IDC_MODE_OFF);
    for (const int radio : {IDC_MODE_OFF, IDC_MODE_ON})
        EnableWindow(Control(radio), m_canSetMode);
    if (!m_canSetMode)
        SetWindowTextA(Control(IDC_MODE_NOTE), Text(TextId::ModeNotPermitted).c_str());
}

void AuthenticationDialog::ShowAccount() {
    CheckRadioButton(m_dialog, IDC_OWNER_LOGIN, IDC_OWNER_SPECIFIED,
                     m_stored.isLoginOwner ? IDC_OWNER_LOGIN : IDC_OWNER_SPECIFIED);
    SetWindowTextA(Control(IDC_LOGIN_NAME), LoggedInUser().c_str());
    if (!m_stored.isLoginOwner)
        SetWindowTextA(Control(IDC_USER_ID), m_stored.owner.c_str());
    SetWindowTextA(Control(IDC_ACCOUNT), m_stored.account.c_str());
    m_shownUserId = PlainEditText(Control(IDC_USER_ID));
    m_shownAccount = PlainEditText(Control(IDC_ACCOUNT));
    EnableUserId();
    SendMessageW(Control(IDC_PASSWORD), EM_LIMITTEXT, kMostPasswordUnits, 0);
    OverwritePassword();
    ShowPassword(std::wstring(m_stored.hasPassword ? kPlaceholderLength : 0, kPlaceholderUnit).c_str());
    m_isPlaceholderShown = m_stored.hasPassword;
}

void AuthenticationDialog::EnableUserId() {
    EnableWindow(Control(IDC_USER_ID), IsChecked(IDC_OWNER_SPECIFIED));
}

// The edit reports this like a user's change.
void AuthenticationDialog::ShowPassword(const wchar_t* text) {
    m_isOwnText = true;
    SetWindowTextW(Control(IDC_PASSWORD), text);
    m_isOwnText = false;
}

void AuthenticationDialog::OnCommand(int controlId, int notification) {
    switch (controlId) {
    case IDC_OWNER_LOGIN:
    case IDC_OWNER_SPECIFIED: EnableUserId(); break;
    case IDC_PASSWORD:
        if (notification == EN_CHANGE && !m_isOwnText)
            OnPasswordChanged();
        else if (notification == EN_SETFOCUS && m_isPlaceholderShown)
            Post(); // a click puts the caret somewhere once it has brought the focus
        break;
    default: break;
    }
}

void AuthenticationDialog::OnPosted() {
    if (m_isPlaceholderShown)
        SendMessageA(Control(IDC_PASSWORD), EM_SETSEL, 0, -1);
}

// What is typed into the placeholder takes its place, even if it was not selected.
void AuthenticationDialog::OnPasswordChanged() {
    m_isPasswordChanged = true;
    if (!m_isPlaceholderShown)
        return;
    m_isPlaceholderShown = false;
    SecretBuffer<wchar_t> text = EditText(Control(IDC_PASSWORD));
    std::ranges::fill(std::ranges::remove(text.Units(), kPlaceholderUnit), L'\0');
    ShowPassword(text.Units().data());
    const auto end = static_cast<WPARAM>(text.Units().size()); // past the end at most
    SendMessageA(Control(IDC_PASSWORD), EM_SETSEL, end, static_cast<LPARAM>(end));
}

// Twice, since the first of them moves what the edit had to where it keeps what it can undo. Copies that the
// system made on the way to the edit, and of a text that was set from outside beyond the limit, are out of
// reach.
void AuthenticationDialog::OverwritePassword() {
    constexpr int kTimes = 2;
    const std::wstring filler(kMostPasswordUnits, L'*');
    m_isOwnText = true;
    for (int i = 0; i < kTimes; ++i) {
        SendMessageW(Control(IDC_PASSWORD), EM_SETSEL, 0, -1);
        SendMessageW(Control(IDC_PASSWORD), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(filler.c_str()));
    }
    m_isOwnText = false;
}

void AuthenticationDialog::OnEnd() {
    OverwritePassword();
}

CompanionDialog::Stored AuthenticationDialog::Store() {
    NewAccount account;
    if (!TakeAccount(account))
        return Stored::Refused;
    bool isSomethingStored = false;
    if (const DWORD status = Write(account, isSomethingStored); status != ERROR_SUCCESS)
        return TellNotStored(status);
    return isSomethingStored ? Stored::Something : Stored::Nothing;
}

// In the order of the controls.
bool AuthenticationDialog::TakeAccount(NewAccount& account) {
    return TakeOwner(account) && TakePassword(account.password) && TakeAccountId(account.account);
}

bool AuthenticationDialog::TakeOwner(NewAccount& account) {
    account.isLoginOwner = IsChecked(IDC_OWNER_LOGIN);
    if (IsOwnerAsShown()) {
        account.owner = StoredText(m_stored.owner);
        return true;
    }
    return account.isLoginOwner ? TakeLoginName(account.owner)
                                : TakeText(IDC_USER_ID, AccountText::UserId, account.owner);
}

// The login name that is shown while no owner is stored is one that has yet to be stored.
bool AuthenticationDialog::IsOwnerAsShown() const {
    if (m_stored.owner.empty() || IsChecked(IDC_OWNER_LOGIN) != m_stored.isLoginOwner)
        return false;
    return m_stored.isLoginOwner || PlainEditText(Control(IDC_USER_ID)) == m_shownUserId;
}

// The readers know the owner by the stored name alone, whoever it stands for.
bool AuthenticationDialog::TakeLoginName(NewText& owner) {
    const std::string name = LoggedInUser();
    if (!IsAllowed(IDC_OWNER_LOGIN, AccountText::LoginName, FaultOf(name, RuleOf(AccountText::LoginName))))
        return false;
    owner = StoredText(name);
    owner.isEntered = true;
    return true;
}

bool AuthenticationDialog::TakePassword(NewText& password) {
    if (m_isPasswordChanged)
        return TakeText(IDC_PASSWORD, AccountText::Password, password);
    password = StoredText("");
    return true;
}

bool AuthenticationDialog::TakeAccountId(NewText& account) {
    if (PlainEditText(Control(IDC_ACCOUNT)) != m_shownAccount)
        return TakeText(IDC_ACCOUNT, AccountText::Account, account);
    account = StoredText(m_stored.account);
    return true;
}

bool AuthenticationDialog::TakeText(int controlId, AccountText kind, NewText& text) {
    std::optional<SecretBuffer<char>> entered = NarrowText(EditText(Control(controlId)).Units());
    const TextFault fault = entered ? FaultOf(View(*entered), RuleOf(kind)) : TextFault::ControlCharacter;
    if (!IsAllowed(controlId, kind, fault))
        return false;
    text = {std::move(*entered), true};
    return true;
}

bool AuthenticationDialog::IsAllowed(int controlId, AccountText kind, TextFault fault) {
    if (fault == TextFault::None)
        return true;
    Refuse(controlId, TextOfFault(kind, fault));
    return false;
}

std::optional<BYTE> AuthenticationDialog::EnteredMode() const {
    const bool isOn = IsChecked(IDC_MODE_ON);
    if (!m_canSetMode || isOn == m_isOnStored)
        return std::nullopt;
    return isOn ? 1 : 0;
}

// The printer is asked first: for one that has gone no key may come back. The mode comes last, since it is
// the one that is everybody's: it is never taken back.
DWORD AuthenticationDialog::Write(const NewAccount& account, bool& isSomethingStored) const {
    if (const DWORD status = PrinterGoneStatus(m_printer); status != ERROR_SUCCESS)
        return status;
    KeyChange change(m_key);
    WriteAccount(change, account);
    DWORD status = static_cast<DWORD>(change.Status());
    const std::optional<BYTE> mode = EnteredMode();
    if (status == ERROR_SUCCESS && mode)
        status =
            printer_settings::WriteNumber(m_printer, WideName(owner_values::kManageMethod).c_str(), *mode);
    if (status == ERROR_SUCCESS)
        change.Keep();
    isSomethingStored = mode || change.IsChanged();
    return status;
}
