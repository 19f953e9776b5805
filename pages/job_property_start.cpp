// The start of the job property application, which then waits in the background.
#include "Common/log.h"
#include "Common/text.h"
#include "pages/job_property_command.h"
#include "pages/job_property_link.h"
#include "pages/process_runner.h"
#include "pages/standardpage.h"
#include "session/datamanager.h"
#include "session/session.h"

#include <array>
#include <string>

int CStandardPageDlg::StartJobProperty(SessionBlock* session) {
    ZR_LOG_ENTRY();
    const std::string key = HandOutSettingKeyName();
    ZR_LOG("registryKeyName=%s\n", key.c_str());

    JobPropertyStart start{.key = key, .server = {}};
    ExportedFunc_GetStarttupMode(session->hPrinter, &start.startupMode);
    ExportedFunc_GetCommunicationMode(session->hPrinter, &start.communicationMode);
    ZR_LOG("startupMode=%u communicationMode=%u\n", start.startupMode, start.communicationMode);
    std::array<char, 260> server{};
    ExportedFunc_GetServerAddress(server.data());
    start.server = FieldText(server);

    const std::string command = StartCommand(CreateCommand(), start);
    ZR_LOG("ジョブプロパティ起動 コマンドライン:%s\n", command.c_str());
    const auto process = TheProcessRunner().Start(command, ProgramWindow::OwnChoice);
    if (!process) {
        ZR_LOG("起動失敗=%x\n", static_cast<unsigned>(GetLastError()));
        return 0;
    }
    process->CloseThread();
    process->CloseProcess();
    return 1;
}
