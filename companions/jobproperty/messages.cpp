#include "companions/jobproperty/messages.h"

#include "Common/ask_user.h"
#include "Common/strings.h"
#include "Common/text.h"

#include <cstdio>

namespace jobproperty {

namespace {

constexpr std::size_t kMostShownOfWord = 80;

TextId TextOf(CommandFault fault) {
    switch (fault) {
    case CommandFault::Empty: return TextId::EmptyCommandLine;
    case CommandFault::TooLong: return TextId::CommandLineTooLong;
    case CommandFault::UnknownCommand: return TextId::UnknownCommand;
    case CommandFault::WrongId: return TextId::WrongId;
    case CommandFault::WrongKey: return TextId::WrongKey;
    case CommandFault::IdOfAnotherKey: return TextId::IdOfAnotherKey;
    case CommandFault::NoKey: return TextId::NoKey;
    case CommandFault::WrongKind: return TextId::WrongKind;
    case CommandFault::WrongLanguage: return TextId::WrongLanguage;
    case CommandFault::WrongProduct: return TextId::WrongProduct;
    case CommandFault::MissingWord: return TextId::MissingWord;
    case CommandFault::UnknownWord: return TextId::UnknownWord;
    }
    return TextId::UnknownWord;
}

} // namespace

std::string Text(TextId text) {
    return LoadText(static_cast<unsigned>(text));
}

std::string TextOf(const CommandError& error) {
    std::string text = Text(TextOf(error.fault));
    if (!error.word.empty())
        text.append("\n").append(error.word, 0, CutLength(error.word, kMostShownOfWord));
    return text;
}

void ReportUnseen(const std::string& text) {
    std::fprintf(stderr, "PrinterDriverApplication: %s\n", text.c_str());
}

void ReportSeen(HWND owner, const std::string& text) {
    AskUser(owner, text.c_str(), Text(TextId::Title).c_str(), AskButtons::Ok);
}

} // namespace jobproperty
