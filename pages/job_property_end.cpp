// The end of the job property application, when a sheet ends.
#include "Common/ask_user.h"
#include "Common/log.h"
#include "Common/strings.h"
#include "pages/job_property_command.h"
#include "pages/job_property_link.h"
#include "pages/process_runner.h"
#include "pages/pspage.h"
#include "resources/resource.h"
#include "session/datamanager.h"

namespace {

constexpr char kProgram[] = "PrinterDriverApplication.exe";

constexpr int kRounds = 5;
constexpr DWORD kBetweenRounds = 400;  // milliseconds
constexpr DWORD kLongestEnd = 180'000; // milliseconds

} // namespace

int CPSPageDlg::JobPropertyProcessCheck() {
    ZR_LOG_ENTRY();
    for (int round = 0; round < kRounds; ++round) {
        // Another sheet's instance counts as well.
        if (TheProcessRunner().IsAnyRunning(kProgram))
            return 1;
        // After the last round too: a sheet without the application takes two seconds to close.
        TheProcessRunner().Sleep(kBetweenRounds);
    }
    return 0;
}

void CPSPageDlg::ExitJobProperty() {
    ZR_LOG_ENTRY();
    const std::string command = ExitCommand(CreateCommand(), HandOutSettingKeyName());
    ZR_LOG("ジョブプロパティ終了 コマンドライン:%s\n", command.c_str());
    const auto process = TheProcessRunner().Start(command, ProgramWindow::OwnChoice);
    if (!process) {
        ZR_LOG("起動失敗=%x\n", static_cast<unsigned>(GetLastError()));
        return;
    }
    process->CloseThread();
    if (process->Wait(kLongestEnd) == WAIT_TIMEOUT)
        AskUser(GetForegroundWindow(), LoadText(IDS_APPLICATION_DOES_NOT_END).c_str(),
                LoadText(IDS_WARNING_TITLE).c_str(), AskButtons::Ok);
    else
        ZR_LOG("ジョブプロパティ終了応答有\n");
    process->CloseProcess();
    ZR_LOG("ジョブプロパティ正常終了\n");
}

void CPSPageDlg::DeleteRegistryKey() {
    ZR_LOG_ENTRY();
    if (!JobPropertyProcessCheck())
        return;
    // Behind the box of an application that does not end another sheet may open, whose key is in use then.
    const std::string key = HandOutSettingKeyName();
    ExitJobProperty();
    ExportedFunc_DeleteRegistryKey(key.c_str());
}
