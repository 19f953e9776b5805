// The package as it is built: its INF and its folder tell of the same files, and the INF holds together.
#include "host/install_printer.h"
#include "tests/package/inf_file.h"
#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <set>

namespace {

using Names = std::set<std::wstring>;

const std::filesystem::path& Folder() {
    static const std::filesystem::path folder = std::filesystem::absolute(ZR_PACKAGE_FOLDER);
    return folder;
}

InfFile Inf() {
    return InfFile(Folder() / L"x100.inf");
}

Names Set(const std::vector<std::wstring>& names) {
    return {names.begin(), names.end()};
}

Names FilesOfTheFolder() {
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder()))
        names.insert(entry.path().filename().wstring());
    return names;
}

std::string Contents(const std::wstring& file) {
    return FileContents((Folder() / file).string());
}

std::vector<std::wstring> Modules() {
    std::vector<std::wstring> modules;
    for (const std::wstring& file : Inf().CopiedFiles())
        if (file.ends_with(L".dll") || file.ends_with(L".exe"))
            modules.push_back(file);
    return modules;
}

std::wstring FileVersion(const std::filesystem::path& file) {
    std::vector<BYTE> block(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (block.empty() ||
        !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &size))
        return L"none";
    return std::to_wstring(HIWORD(info->dwFileVersionMS)) + L"." +
           std::to_wstring(LOWORD(info->dwFileVersionMS)) + L"." +
           std::to_wstring(HIWORD(info->dwFileVersionLS)) + L"." +
           std::to_wstring(LOWORD(info->dwFileVersionLS));
}

std::optional<IMAGE_FILE_HEADER> FileHeader(const std::string& module) {
    IMAGE_DOS_HEADER dos{};
    IMAGE_FILE_HEADER header{};
    if (module.size() < sizeof dos)
        return std::nullopt;
    std::memcpy(&dos, module.data(), sizeof dos);
    const std::size_t start = static_cast<std::size_t>(dos.e_lfanew) + sizeof(DWORD);
    if (module.size() < start + sizeof header)
        return std::nullopt;
    std::memcpy(&header, module.data() + start, sizeof header);
    return header;
}

TEST(PackageFiles, TheFolderHoldsWhatTheInfCopiesTheInfAndTheGuide) {
    Names expected = Set(Inf().CopiedFiles());
    expected.insert({L"x100.inf", L"install.md"});
    EXPECT_EQ(FilesOfTheFolder(), expected);
}

TEST(PackageFiles, TheDriverGetsItsDescriptionPluginDialogsStoreSatelliteAndStandardSettings) {
    EXPECT_EQ(Set(Inf().CopiedFiles(kDriverDirectory)),
              (Names{L"x100.ppd", L"x100.ini", L"ZRPDS31J.dll", L"ZRPDS31J_def", L"ZRPDS31JENU.dll",
                     L"DataManager.dll", L"AuthenticationManager.dll", L"CommunicationSetting.dll"}));
}

TEST(PackageFiles, TheWindowsDirectoryGetsTheApplicationAlone) {
    EXPECT_EQ(Set(Inf().CopiedFiles(kWindowsDirectory)), Names{L"PrinterDriverApplication.exe"});
}

TEST(PackageFiles, NoFileIsCopiedTwice) {
    const std::vector<std::wstring> files = Inf().CopiedFiles();
    EXPECT_EQ(Set(files).size(), files.size());
}

TEST(PackageFiles, EachHasContents) {
    for (const std::wstring& file : Inf().CopiedFiles())
        EXPECT_GT(std::filesystem::file_size(Folder() / file), 0u) << std::filesystem::path(file);
}

TEST(PackageFiles, ThePreferencesOfADeveloperAreInstalledFromTheSameFiles) {
    const DriverPackage package;
    Names expected = Set(package.dependentFiles);
    expected.insert({package.dataFile, package.application});
    EXPECT_EQ(Set(Inf().CopiedFiles()), expected);
}

TEST(PackageInf, IsOneOfAPrinterFor64BitWindows) {
    InfFile inf(Folder() / L"x100.inf");
    ASSERT_TRUE(inf);
    EXPECT_EQ(inf.Value(L"Version", L"Signature"), L"$Windows NT$");
    EXPECT_EQ(inf.Value(L"Version", L"Class"), L"Printer");
    EXPECT_EQ(inf.Value(L"Version", L"ClassGuid"), L"{4D36E979-E325-11CE-BFC1-08002BE10318}");
    EXPECT_EQ(inf.Value(L"Version", L"Provider"), L"Zephra");
    EXPECT_EQ(inf.Values(L"Manufacturer", L"Zephra"), (InfLine{L"Models", L"NTamd64"}));
}

TEST(PackageInf, EndsItsLinesAsWindowsDoes) {
    const std::string text = Contents(L"x100.inf");
    EXPECT_EQ(std::ranges::count(text, '\n'), std::ranges::count(text, '\r'));
    EXPECT_GT(std::ranges::count(text, '\n'), 50);
}

TEST(PackageInf, InstallsTheDriverByTheNameOfItsDescription) {
    EXPECT_EQ(Inf().Model(), L"Zephra Orvane X100");
    EXPECT_EQ(Inf().Model(), kDriverName);
    EXPECT_NE(Contents(L"x100.ppd").find("*NickName: \"Zephra Orvane X100\""), std::string::npos);
}

TEST(PackageInf, TakesTheStockDriversFilesFromThePlatform) {
    const std::wstring install = Inf().InstallSection();
    EXPECT_EQ(Inf().Value(install, L"Include"), L"ntprint.inf");
    EXPECT_EQ(Inf().Value(install, L"Needs"), L"PSCRIPT.OEM");
    EXPECT_EQ(Inf().Value(install, L"DataSection"), L"PSCRIPT_DATA");
    EXPECT_EQ(Inf().Value(install, L"DataFile"), L"x100.ppd");
}

TEST(PackageInf, NamesASourceForEachFileThatItCopiesAndForNoOther) {
    Names sources;
    for (const InfLine& line : Inf().Lines(L"SourceDisksFiles.amd64")) {
        sources.insert(line[0]);
        EXPECT_EQ(Inf().Value(L"SourceDisksNames.amd64", line[1]), L"Orvane X100 Driver");
    }
    EXPECT_EQ(sources, Set(Inf().CopiedFiles()));
}

TEST(PackageInf, HasEachSectionThatItNames) {
    const InfFile inf(Folder() / L"x100.inf");
    EXPECT_TRUE(inf.HasSection(inf.InstallSection()));
    const std::vector<std::wstring> lists = inf.Values(inf.InstallSection(), L"CopyFiles");
    EXPECT_EQ(lists.size(), 2u);
    for (const std::wstring& list : lists)
        EXPECT_FALSE(inf.Lines(list).empty()) << std::filesystem::path(list);
    for (const InfLine& line : inf.Lines(L"DestinationDirs"))
        EXPECT_TRUE(line[0] == L"DefaultDestDir" || std::ranges::count(lists, line[0]) == 1)
            << std::filesystem::path(line[0]);
}

TEST(PackageInf, PutsTheApplicationWhereThePluginStartsIt) {
    const std::filesystem::path started = JobPropertyApplicationPath();
    const std::vector<std::wstring> directory = Inf().Values(L"DestinationDirs", L"X100.Application");
    ASSERT_EQ(directory.size(), 2u);
    EXPECT_EQ(directory[0], L"10");
    EXPECT_EQ(std::filesystem::path(L"C:\\Windows") / directory[1], started.parent_path());
    EXPECT_EQ(Inf().CopiedFiles(kWindowsDirectory), std::vector{started.filename().wstring()});
}

TEST(PackageInf, HasTheVersionOfItsModules) {
    const std::vector<std::wstring> version = Inf().Values(L"Version", L"DriverVer");
    ASSERT_EQ(version.size(), 2u);
    for (const std::wstring& module : Modules())
        EXPECT_EQ(FileVersion(Folder() / module), version[1]) << std::filesystem::path(module);
}

TEST(PackageModules, AreFor64BitAndCarryNoSymbols) {
    for (const std::wstring& module : Modules()) {
        const auto header = FileHeader(Contents(module));
        ASSERT_TRUE(header) << std::filesystem::path(module);
        EXPECT_EQ(header->Machine, IMAGE_FILE_MACHINE_AMD64) << std::filesystem::path(module);
        EXPECT_EQ(header->PointerToSymbolTable, 0u) << std::filesystem::path(module);
    }
}

TEST(PackageModules, IncludeTheOneThatTheIniNames) {
    wchar_t name[MAX_PATH] = {};
    GetPrivateProfileStringW(L"OEMFiles", L"OEMConfigFile1", L"", name, MAX_PATH,
                             (Folder() / L"x100.ini").c_str());
    EXPECT_STRCASEEQ(std::filesystem::path(name).string().c_str(), "ZRPDS31J.dll");
}

} // namespace
