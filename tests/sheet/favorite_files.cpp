#include "tests/sheet/favorite_files.h"

#include "host/driverhost_text.h"
#include "host/wide.h"
#include "tests/sheet/program.h"

#include <algorithm>
#include <array>

#include <windows.h>

#include <shlobj.h>

namespace {

std::wstring WideOfAnsi(const std::string& text) {
    return Wide(driverhost::Utf8OfAnsi(text));
}

std::string AnsiOfWide(const std::wstring& text) {
    return driverhost::AnsiOfUtf8(Utf8(text));
}

} // namespace

std::filesystem::path FavoriteFolder() {
    std::array<wchar_t, MAX_PATH> documents{};
    SHGetFolderPathW(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, documents.data());
    return std::filesystem::path(documents.data()) / L"Zephra" / L"KP Controller" / L"Orvane X100" /
           L"favorite";
}

std::filesystem::path FavoriteFile(const std::string& name) {
    return FavoriteFolder() / (WideOfAnsi(name) + L".pfk");
}

std::vector<std::string> FavoriteNames() {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(FavoriteFolder(), ignored))
        if (entry.path().extension() == L".pfk")
            names.push_back(AnsiOfWide(entry.path().stem().wstring()));
    std::ranges::sort(names);
    return names;
}

void ClearFavorites() {
    std::error_code ignored;
    std::filesystem::remove_all(FavoriteFolder(), ignored);
}

ExchangeFolder::ExchangeFolder() {
    std::array<wchar_t, MAX_PATH> temporary{};
    GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
    m_path =
        std::filesystem::path(temporary.data()) / (L"favorites-" + std::to_wstring(GetCurrentProcessId()));
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
    std::filesystem::create_directories(m_path);
}

ExchangeFolder::~ExchangeFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path ExchangeFolder::File(const std::string& name) const {
    return m_path / WideOfAnsi(name);
}

std::string ExchangeFolder::Word(const std::string& name) const {
    std::string word = "\"";
    for (const wchar_t c : File("").wstring())
        word += c == L'\\' ? std::string("\\\\") : std::string(1, static_cast<char>(c));
    return word + name + "\"";
}

std::string ReadText(const std::filesystem::path& file) {
    const std::vector<char> bytes = ReadBytes(file.wstring());
    return {bytes.begin(), bytes.end()};
}

void WriteText(const std::filesystem::path& file, const std::string& bytes) {
    WriteBytes(file.wstring(), {bytes.begin(), bytes.end()});
}
