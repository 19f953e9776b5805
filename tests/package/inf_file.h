// An INF as the platform's setup functions read it: names without regard to case, %texts% put in.
#pragma once

#include <windows.h>

#include <setupapi.h>

#include <filesystem>
#include <string>
#include <vector>

// The fields of one line; that at 0 is its key, of a line without its first value, which then stands at 1
// again.
using InfLine = std::vector<std::wstring>;

class InfFile {
  public:
    explicit InfFile(const std::filesystem::path& file);
    ~InfFile();
    InfFile(const InfFile&) = delete;
    InfFile& operator=(const InfFile&) = delete;

    // Whether it could be opened as the INF of a driver.
    explicit operator bool() const { return m_inf != INVALID_HANDLE_VALUE; }
    HINF Handle() const { return m_inf; }

    bool HasSection(const std::wstring& section) const;
    std::vector<InfLine> Lines(const std::wstring& section) const;
    // The values of the first line with this key; none if there is no such line.
    std::vector<std::wstring> Values(const std::wstring& section, const std::wstring& key) const;
    // The first of them, "" if there is none.
    std::wstring Value(const std::wstring& section, const std::wstring& key) const;

    // The section that installs the only model for 64-bit Windows, and that model's name.
    std::wstring InstallSection() const;
    std::wstring Model() const;
    // The files that the install section copies to this directory's number; all of them for 0.
    std::vector<std::wstring> CopiedFiles(int directory = 0) const;

  private:
    InfLine ModelLine() const;

    HINF m_inf = INVALID_HANDLE_VALUE;
};

// The numbers of an INF for the spooler's driver directory and the Windows directory.
inline constexpr int kDriverDirectory = 66000;
inline constexpr int kWindowsDirectory = 10;
