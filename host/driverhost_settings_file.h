// The settings that a user keeps for a printer: one DEVMODE in a file of the user's own.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace driverhost {

// The file is %APPDATA%\Zephra\Printers\NAME.devmode; characters that no file name can have stand as %XX.
class SettingsFile {
  public:
    explicit SettingsFile(std::wstring printerName);

    const std::wstring& File() const { return m_file; }

    // The stored DEVMODE, with sizes that agree with the bytes there are; empty if nothing is stored. With
    // something in `error` there is a file that can't be used.
    std::vector<std::byte> Load(std::string& error) const;

    // Returns "" or why the settings could not be stored; the former ones are then still there.
    std::string Store(const std::vector<std::byte>& devmode) const;

    // Returns "" or why the file is still there.
    std::string Forget() const;

  private:
    std::wstring m_file;
};

} // namespace driverhost
