#include "companions/jobproperty/command_line.h"

#include "datamanager/key_names.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace jobproperty {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kKind = "PDF";
constexpr std::string_view kBehindDirectAddress = "-onceForce";
constexpr std::string_view kProductSwitch = "-iotproduct";

struct VerbWord {
    std::string_view word;
    Verb verb;
};
constexpr std::array<VerbWord, 4> kVerbs{
    {{"-start", Verb::Start}, {"-show", Verb::Show}, {"-exit", Verb::Exit}, {"-file", Verb::File}}};

std::string KeyOfId(std::string_view id) {
    return std::string(kDataSettingParent).append("\\").append(kDataSettingPrefix).append(id);
}

class Reader {
  public:
    explicit Reader(std::string_view line) : m_rest(line) { SkipBlanks(); }

    bool HasFailed() const { return m_error.has_value(); }
    std::variant<Command, CommandError> Result(Command command) && {
        if (m_error)
            return *m_error;
        return command;
    }

    void Fail(CommandFault fault, std::string_view word) {
        if (!m_error)
            m_error = {fault, true, std::string(word)};
    }
    void MarkUnseen() {
        if (m_error)
            m_error->isSeen = false;
    }

    // "" at the end of the line.
    std::string_view Next() const { return m_rest.substr(0, m_rest.find_first_of(kBlanks)); }

    std::string_view Take() {
        const std::string_view word = Next();
        m_rest.remove_prefix(word.size());
        SkipBlanks();
        return word;
    }

    void Expect(std::string_view word, CommandFault fault = CommandFault::UnknownWord) {
        if (const std::string_view taken = Take(); taken != word)
            Fail(taken.empty() ? CommandFault::MissingWord : fault, taken);
    }

    bool TakeIf(std::string_view word) {
        if (Next() != word)
            return false;
        Take();
        return true;
    }

    // An address, up to the word behind it. It may be empty, and it stands unquoted whatever blanks it has.
    void SkipAddressTo(std::string_view behind) {
        while (!m_rest.empty() && Next() != behind)
            Take();
    }

    void ExpectEnd() {
        if (!m_rest.empty())
            Fail(CommandFault::UnknownWord, Next());
    }

  private:
    void SkipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size())); }

    std::string_view m_rest;
    std::optional<CommandError> m_error;
};

std::string TakeId(Reader& reader) {
    const std::string_view id = reader.Take();
    if (!IsDataSettingKeyName(KeyOfId(id)))
        reader.Fail(id.empty() ? CommandFault::MissingWord : CommandFault::WrongId, id);
    return std::string(id);
}

std::string TakeKey(Reader& reader, std::string_view id) {
    const std::string_view key = reader.Take();
    if (!IsDataSettingKeyName(key))
        reader.Fail(key.empty() ? CommandFault::MissingWord : CommandFault::WrongKey, key);
    else if (key != KeyOfId(id))
        reader.Fail(CommandFault::IdOfAnotherKey, key);
    return std::string(key);
}

void TakeSheet(Reader& reader, Command& command) {
    if (reader.Next() == kKind)
        return reader.Fail(CommandFault::NoKey, {});
    command.id = TakeId(reader);
    command.key = TakeKey(reader, command.id);
}

void ExpectKind(Reader& reader) {
    reader.Expect(kKind, CommandFault::WrongKind);
}

void ExpectLanguage(Reader& reader) {
    reader.Expect("ja-JP", CommandFault::WrongLanguage);
}

void ExpectProduct(Reader& reader) {
    reader.Expect(kProductSwitch);
    reader.Expect("10", CommandFault::WrongProduct);
}

void SkipDirectAddress(Reader& reader) {
    reader.SkipAddressTo(kBehindDirectAddress);
    reader.Expect(kBehindDirectAddress);
}

void ReadStart(Reader& reader, Command& command) {
    TakeSheet(reader, command);
    ExpectKind(reader);
    ExpectLanguage(reader);
    if (reader.TakeIf("-ip"))
        SkipDirectAddress(reader);
    else
        reader.SkipAddressTo(kProductSwitch);
    ExpectProduct(reader);
    if (reader.TakeIf("-mock")) {
        reader.Expect("-market");
        reader.Expect("JP");
    }
}

void ReadShow(Reader& reader, Command& command) {
    TakeSheet(reader, command);
    ExpectKind(reader);
}

void ReadFile(Reader& reader) {
    reader.Expect("dummyID", CommandFault::WrongId);
    reader.Expect("dummyRegKey", CommandFault::WrongKey);
    ExpectKind(reader);
    ExpectLanguage(reader);
    reader.Expect("-ip");
    SkipDirectAddress(reader);
    ExpectProduct(reader);
}

std::optional<Verb> TakeVerb(Reader& reader) {
    const std::string_view word = reader.Take();
    for (const VerbWord& row : kVerbs)
        if (row.word == word)
            return row.verb;
    reader.Fail(word.empty() ? CommandFault::Empty : CommandFault::UnknownCommand, word);
    return std::nullopt;
}

void ReadRest(Reader& reader, Command& command) {
    switch (command.verb) {
    case Verb::Start: ReadStart(reader, command); break;
    case Verb::Show: ReadShow(reader, command); break;
    case Verb::Exit: command.id = TakeId(reader); break;
    case Verb::File: ReadFile(reader); break;
    }
    reader.ExpectEnd();
}

} // namespace

std::variant<Command, CommandError> ParseCommandLine(std::string_view line) {
    Reader reader(line);
    Command command{};
    if (const std::optional<Verb> verb = TakeVerb(reader)) {
        command.verb = *verb;
        if (line.size() > kMostCommandLine)
            reader.Fail(CommandFault::TooLong, {});
        ReadRest(reader, command);
        if (command.verb == Verb::Start || command.verb == Verb::Exit)
            reader.MarkUnseen();
    }
    return std::move(reader).Result(command);
}

} // namespace jobproperty
