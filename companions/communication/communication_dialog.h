// The dialog in which the way to the print server is set: its address and the mode of communication.
#pragma once

#include "companions/common/companion_dialog.h"

#include <cstdint>
#include <optional>
#include <string>

class CommunicationDialog final : public CompanionDialog {
  public:
    explicit CommunicationDialog(HANDLE printer) : m_printer(printer) {}

  protected:
    int OnInit() override;
    Stored Store() override;

  private:
    // Nothing if the user left it as it was shown.
    std::optional<std::wstring> EnteredAddress() const;
    std::optional<std::uint32_t> EnteredMode() const;
    // Both or none; 0, or why the spooler did not store them.
    std::uint32_t Write(const std::optional<std::wstring>& address, std::optional<std::uint32_t> mode) const;

    HANDLE m_printer;
    std::uint32_t m_mode = 0; // as stored
    std::wstring m_shownAddress;
};
