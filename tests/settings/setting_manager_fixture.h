// A setting manager of a test's own, a store that is prepared, a favourite directory and a folder beside it.
#pragma once

#include "Common/data_directories.h"
#include "session/datamanager.h"
#include "settings/FavoriteFileManager.h"
#include "settings/SettingManager.h"
#include "settings/print_option_access.h"
#include "tests/support/bank_values.h"

#include <gtest/gtest.h>

#if defined(_WIN32)
#include "tests/support/main_log.h"
#include "tests/support/traces.h"
#else
#include "Common/log_recorder.h"
#include "Common/platform_files_native.h"
#endif

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using ddb::FieldId;

// Collects the main log's messages and the favourites' log while it lives.
class LogLines {
  public:
#if defined(_WIN32)
    std::vector<std::string> Messages() const {
        return m_log.Messages();
    }
    std::string FavoriteLog() const {
        std::ifstream file(kFavoriteLog);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    static constexpr char kFavoriteLog[] = "C:\\qpsp\\Log\\Favorite.txt";
    MainLog m_log;
#else
    std::vector<std::string> Messages() const {
        std::vector<std::string> messages;
        for (std::string message : m_recorder.main) {
            if (message.ends_with('\n'))
                message.pop_back();
            messages.push_back(message);
        }
        return messages;
    }
    std::string FavoriteLog() const {
        return m_recorder.favorite;
    }

  private:
    log_backend::Recorder m_recorder;
#endif
};

// The number of messages "<file> <line>行目 <function> <text>" of one function of the manager.
inline long CountMessages(const LogLines& log, std::string_view function, std::string_view text) {
    const std::string end = "行目 " + std::string(function) + " " + std::string(text);
    return std::ranges::count_if(log.Messages(), [&](const std::string& message) {
        return message.find("SettingManager.cpp ") != std::string::npos && message.ends_with(end);
    });
}

inline std::int32_t Copies(const CSettingInfo& setting) {
    return GetI32(setting.PrintOption(), FieldAt(FieldId::NumOfCopies));
}
inline void SetComment(CSettingInfo& setting, std::string_view text) {
    SetText(setting.PrintOption(), FieldAt(FieldId::UserComment), text);
}

class SettingManagerTest : public testing::Test {
  protected:
    SettingManagerTest() {
        // Programs of several builds may run at once.
        do {
            folder = std::filesystem::temp_directory_path() /
                     ("zr_manager_" + std::to_string(std::random_device()()));
        } while (!std::filesystem::create_directory(folder));
        ChooseFavoriteDirectory();
        CSettingManager::Destroy();
        ExportedFunc_InitializeDataManager();
    }
    ~SettingManagerTest() override {
        CSettingManager::Destroy();
        ForgetFavoriteDirectory();
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    // A path in the test's own folder.
    std::string PathOf(std::string_view name) const { return (folder / name).string(); }
    std::string Write(std::string_view name, std::string_view content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
        return PathOf(name);
    }
    static std::string Content(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // The path of a file in the favourite directory, which is made, as the platform writes it.
    static std::filesystem::path FavoritePath(std::string_view file) {
        EXPECT_EQ(CreateFavoriteDirectory(), 1);
        std::array<char, 260> directory{};
        GetFavoriteDirectory(directory.data(), directory.size());
        return std::filesystem::path(Native(directory.data())) / file;
    }
    static void WriteFavoriteFile(std::string_view file, std::string_view content) {
        std::ofstream(FavoritePath(file), std::ios::binary) << content;
    }
    // A favourite of the present format as a file of the favourite directory.
    static void SaveFavorite(std::string_view name, CFavoriteSetting favorite) {
        const std::filesystem::path path = FavoritePath(std::string(name) + ".pfk");
        ASSERT_EQ(CFavoriteFileManager({}).SaveFavoriteFromPath(favorite, path.string().c_str()), 1) << name;
    }
    // A favourite file in the test's own folder; gives its path.
    std::string SaveDefaults(std::string_view name, const CFavoriteSetting& favorite) const {
        const std::string path = PathOf(name);
        EXPECT_EQ(CFavoriteFileManager({}).SaveFavoriteFromPath(favorite, path.c_str()), 1);
        return path;
    }

    static CFavoriteSetting MakeFavorite(std::string_view name = {}, std::int32_t copies = 1) {
        CFavoriteSetting favorite;
        favorite.FileVer = 2;
        favorite.IotVer = 10;
        std::ranges::copy(name.substr(0, favorite.Name.size() - 1), favorite.Name.begin());
        SetI32(favorite.PrintOption(), FieldAt(FieldId::NumOfCopies), copies);
        return favorite;
    }

    static std::string UserComment() {
        std::array<char, 1024> text{};
        ExportedFunc_GetUserComment(text.data());
        return text.data();
    }

    std::filesystem::path folder;

  private:
#if defined(_WIN32)
    static std::string Native(const char* path) {
        return path;
    }
    void ChooseFavoriteDirectory() {
        const std::string root = FolderPath(CSIDL_COMMON_DOCUMENTS) + "\\Zephra";
        for (const char* directory : {"", "\\KP Controller", "\\KP Controller\\Orvane X100",
                                      "\\KP Controller\\Orvane X100\\favorite"})
            m_traces.Expect(root + directory);
        ForgetFavoriteDirectory();
    }
    // The folder is the platform's own, so that only its content goes here.
    static void ForgetFavoriteDirectory() {
        std::error_code ignored;
        const std::string favorites =
            FolderPath(CSIDL_COMMON_DOCUMENTS) + "\\Zephra\\KP Controller\\Orvane X100\\favorite";
        std::filesystem::remove_all(favorites, ignored);
    }
    Traces m_traces;
#else
    static std::string Native(const char* path) {
        return platform_files::NativePath(path);
    }
    void ChooseFavoriteDirectory() {
        std::filesystem::create_directory(folder / "documents");
        platform_files::Folders().commonDocuments = PathOf("documents");
    }
    static void ForgetFavoriteDirectory() {
        platform_files::Folders() = {};
    }
#endif
};
