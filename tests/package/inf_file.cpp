#include "tests/package/inf_file.h"

#include <array>

namespace {

std::wstring Field(INFCONTEXT& line, DWORD index) {
    std::array<wchar_t, 1024> text{};
    SetupGetStringFieldW(&line, index, text.data(), static_cast<DWORD>(text.size()), nullptr);
    return text.data();
}

InfLine Fields(INFCONTEXT& line) {
    InfLine fields;
    const DWORD count = SetupGetFieldCount(&line);
    for (DWORD index = 0; index <= count; ++index)
        fields.push_back(Field(line, index));
    return fields;
}

std::vector<std::wstring> ValuesOf(const InfLine& line) {
    return line.empty() ? line : InfLine(line.begin() + 1, line.end());
}

} // namespace

InfFile::InfFile(const std::filesystem::path& file)
    : m_inf(SetupOpenInfFileW(file.c_str(), L"Printer", INF_STYLE_WIN4, nullptr)) {}

InfFile::~InfFile() {
    if (*this)
        SetupCloseInfFile(m_inf);
}

bool InfFile::HasSection(const std::wstring& section) const {
    return SetupGetLineCountW(m_inf, section.c_str()) >= 0;
}

std::vector<InfLine> InfFile::Lines(const std::wstring& section) const {
    std::vector<InfLine> lines;
    INFCONTEXT line{};
    for (BOOL more = SetupFindFirstLineW(m_inf, section.c_str(), nullptr, &line); more;
         more = SetupFindNextLine(&line, &line))
        lines.push_back(Fields(line));
    return lines;
}

std::vector<std::wstring> InfFile::Values(const std::wstring& section, const std::wstring& key) const {
    INFCONTEXT line{};
    if (!SetupFindFirstLineW(m_inf, section.c_str(), key.c_str(), &line))
        return {};
    return ValuesOf(Fields(line));
}

std::wstring InfFile::Value(const std::wstring& section, const std::wstring& key) const {
    const std::vector<std::wstring> values = Values(section, key);
    return values.empty() ? L"" : values.front();
}

InfLine InfFile::ModelLine() const {
    const std::vector<InfLine> makers = Lines(L"Manufacturer");
    if (makers.size() != 1 || makers[0].size() != 3)
        return {};
    const std::vector<InfLine> models = Lines(makers[0][1] + L"." + makers[0][2]);
    return models.size() == 1 ? models[0] : InfLine();
}

std::wstring InfFile::Model() const {
    const InfLine line = ModelLine();
    return line.empty() ? L"" : line[0];
}

std::wstring InfFile::InstallSection() const {
    const InfLine line = ModelLine();
    return line.size() < 2 ? L"" : line[1];
}

std::vector<std::wstring> InfFile::CopiedFiles(int directory) const {
    std::vector<std::wstring> files;
    for (const std::wstring& section : Values(InstallSection(), L"CopyFiles")) {
        std::wstring number = Value(L"DestinationDirs", section);
        if (number.empty())
            number = Value(L"DestinationDirs", L"DefaultDestDir");
        if (directory != 0 && number != std::to_wstring(directory))
            continue;
        for (const InfLine& line : Lines(section))
            files.push_back(line.back());
    }
    return files;
}
