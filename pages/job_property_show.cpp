// The job property application's window, which the page waits for.
#include "Common/data_directories.h"
#include "Common/log.h"
#include "pages/job_property_command.h"
#include "pages/job_property_link.h"
#include "pages/process_runner.h"
#include "pages/standardpage.h"
#include "session/bank_values.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "session/session.h"
#include "settings/SettingManager.h"

#include <array>
#include <string>

namespace {

// The application gets tag numbers in the Current bank, where the pages have option indices. These come back
// unless the application's own numbers are to be taken.
class KeptCurrentBank {
  public:
    KeptCurrentBank() {
        for (int keyword = 0; keyword < kKeywordCount; ++keyword)
            m_values[static_cast<std::size_t>(keyword)] = CurrentOf(keyword);
    }
    ~KeptCurrentBank() {
        for (int keyword = 0; m_putsBack && keyword < kKeywordCount; ++keyword)
            ExportedFunc_SetCurrent(keyword, m_values[static_cast<std::size_t>(keyword)]);
    }
    KeptCurrentBank(const KeptCurrentBank&) = delete;
    KeptCurrentBank& operator=(const KeptCurrentBank&) = delete;

    void LetGo() { m_putsBack = false; }

  private:
    std::array<std::uint32_t, kKeywordCount> m_values{};
    bool m_putsBack = true;
};

void LogDataDirectories() {
    std::array<char, 260> favorites{};
    std::array<char, 260> profiles{};
    std::array<char, 260> spotColors{};
    GetFavoriteDirectory(favorites.data(), favorites.size());
    GetProfileDirectory(profiles.data(), profiles.size());
    GetSpotColorDirectory(spotColors.data(), spotColors.size());
    ZR_LOG("favorites=%s profiles=%s spotColors=%s\n", favorites.data(), profiles.data(), spotColors.data());
}

} // namespace

int CStandardPageDlg::DoModalPrintOptionUI() {
    ZR_LOG_ENTRY();
    SessionBlock* session = Session();
    const std::string key = HandOutSettingKeyName();
    CSettingManager* manager = CSettingManager::GetSettingManager();
    if (!manager)
        return 0;
    ExportedFunc_GetProfile(session->Profile);
    const auto profileName = std::to_array(session->Profile);
    LogDataDirectories();

    KeptCurrentBank bank;
    manager->LoadCurrentSettingInfo();
    manager->AllCurrentToSession();
    const std::string command = ShowCommand(CreateCommand(), key);
    ZR_LOG("コマンドライン:%s\n", command.c_str());
    switch (RunProgram(command, ProgramWindow::Shown)) {
    case ProgramRun::NotStarted: ZR_LOG("起動失敗=%x\n", static_cast<unsigned>(GetLastError())); return 0;
    case ProgramRun::NotIdle: ZR_LOG("the application is not waited for\n"); return 1;
    case ProgramRun::Ended: break;
    }
    // Whether the user said OK or Cancel shows only in what the key holds.
    manager->LoadRegistryToCurrentSettingInfo();
    ExportedFunc_SetProfile(profileName.data());
    manager->SaveCurrentToSession();
    bank.LetGo();
    return 1;
}
