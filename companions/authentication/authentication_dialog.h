// The dialog in which the printer's authentication mode and the user's account for its jobs are set.
#pragma once

#include "companions/authentication/account_rules.h"
#include "companions/authentication/stored_account.h"
#include "companions/common/companion_dialog.h"

#include <optional>
#include <string>

class AuthenticationDialog final : public CompanionDialog {
  public:
    AuthenticationDialog(HANDLE printer, std::string key, bool canSetMode)
        : m_printer(printer), m_key(std::move(key)), m_canSetMode(canSetMode) {}

  protected:
    int OnInit() override;
    void OnCommand(int controlId, int notification) override;
    void OnPosted() override;
    void OnEnd() override;
    Stored Store() override;

  private:
    void ShowMode();
    void ShowAccount();
    void ShowPassword(const wchar_t* text);
    void OverwritePassword();
    void EnableUserId();
    void OnPasswordChanged();

    // Each false once it has told the user what is wrong.
    bool TakeAccount(NewAccount& account);
    bool TakeOwner(NewAccount& account);
    bool TakeLoginName(NewText& owner);
    bool TakePassword(NewText& password);
    bool TakeAccountId(NewText& account);
    bool TakeText(int controlId, AccountText kind, NewText& text);
    bool IsAllowed(int controlId, AccountText kind, TextFault fault);

    bool IsOwnerAsShown() const;

    // Nothing if the mode stays as it is.
    std::optional<BYTE> EnteredMode() const;
    // All or nothing; 0, or why it could not be stored.
    DWORD Write(const NewAccount& account, bool& isSomethingStored) const;

    HANDLE m_printer;
    std::string m_key;
    bool m_canSetMode;
    bool m_isOnStored = false; // whatever number the mode has
    StoredAccount m_stored;
    std::wstring m_shownUserId;
    std::wstring m_shownAccount;
    bool m_isPlaceholderShown = false;
    bool m_isPasswordChanged = false;
    bool m_isOwnText = false; // the dialog itself writes into the password's edit
};
