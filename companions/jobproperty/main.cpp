#include "companions/jobproperty/background.h"
#include "companions/jobproperty/messages.h"
#include "companions/jobproperty/show.h"

#include <windows.h>

#include <exception>

namespace {

using namespace jobproperty;

ExitCode Run(const Command& command) {
    switch (command.verb) {
    case Verb::Start: return StayInBackground(command.id, command.key);
    case Verb::Exit: return EndBackground(command.id);
    case Verb::Show: return ShowSettingsOf(command.id, command.key);
    case Verb::File: return ShowDefaults();
    }
    return ExitCode::BadCommandLine;
}

ExitCode Refuse(const CommandError& error) {
    if (error.isSeen)
        ReportSeen(nullptr, TextOf(error));
    else
        ReportUnseen(TextOf(error));
    return error.fault == CommandFault::NoKey ? ExitCode::NoKey : ExitCode::BadCommandLine;
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int) {
    try {
        const auto parsed = ParseCommandLine(commandLine);
        const auto* command = std::get_if<Command>(&parsed);
        return static_cast<int>(command ? Run(*command) : Refuse(std::get<CommandError>(parsed)));
    } catch (const std::exception& error) {
        ReportUnseen(error.what());
    }
    return static_cast<int>(ExitCode::Failed);
}
