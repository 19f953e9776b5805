#include "host/script.h"

#include "host/script_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>
#include <utility>

namespace script {
namespace {

enum class Argument {
    None,
    Control,
    Row,
    RowOrText,
    Text,
    File,
    OnOff,
    SheetButton,
    BoxButton,
    Bank,
    Keyword,
    Number,
    KeyName,
    Milliseconds,
    Name,
    Wanted
};

// What one action looks like. `second` is empty unless the action is told by two words.
struct Form {
    std::string_view first;
    std::string_view second;
    Verb verb;
    std::array<Argument, 3> arguments;
    std::string_view usage;
    std::string_view meaning;
};

using enum Argument;
constexpr std::array kForms{
    Form{"page", "", Verb::Page, {Text}, "TITLE", "go to the page with this title"},
    Form{"choose",
         "",
         Verb::Choose,
         {Control, RowOrText},
         "ID ROW|\"text\"",
         "choose a row of a combo box or a list"},
    Form{"click", "", Verb::Click, {Control}, "ID", "click a button"},
    Form{"check",
         "",
         Verb::Check,
         {Control, OnOff},
         "ID on|off",
         "click a check box or radio button if need be"},
    Form{"type",
         "",
         Verb::Type,
         {Control, Text},
         "ID \"text\"",
         "replace the text of an edit field, key by key"},
    Form{"key", "", Verb::Key, {KeyName}, "enter|escape|tab|up|down|space", "press a key where the focus is"},
    Form{"press", "", Verb::Press, {SheetButton}, "ok|cancel|apply", "press a button of the sheet"},
    Form{"answer", "", Verb::Answer, {BoxButton}, "ok|yes|no|cancel", "press a button of the message box"},
    Form{"screenshot", "", Verb::Screenshot, {File}, "FILE.png", "write a picture of the window in front"},
    Form{"wait", "", Verb::Wait, {Milliseconds}, "MS", "let the sheet run for that long"},
    Form{"reopen", "", Verb::Reopen, {}, "", "close the sheet with OK if it is open, and open it again"},
    Form{"end",
         "",
         Verb::EndProgram,
         {},
         "",
         "end the program in front that the sheet has started, as a crash would"},
    Form{"print", "", Verb::PrintText, {Text}, "\"text\"", "print a line"},
    Form{"bank",
         "",
         Verb::PrintBank,
         {Argument::Bank, Keyword},
         "BANK KEYWORD",
         "print the value of a keyword's number in Current, Default, Favorite or Preview"},
    Form{"value", "", Verb::PrintValue, {Name}, "NAME", "print a named value of the store"},
    Form{"set",
         "bank",
         Verb::SetBank,
         {Argument::Bank, Keyword, Number},
         "BANK KEYWORD VALUE",
         "write a keyword's value, as another program that shares the store may"},
    Form{"set",
         "value",
         Verb::SetValue,
         {Name, Number},
         "NAME VALUE",
         "write a named number, as another program that shares the store may"},
    Form{"set",
         "text",
         Verb::SetText,
         {Name, Wanted},
         "NAME \"text\"",
         "write a named text, as another program that shares the store may"},
    Form{"expect", "row", Verb::ExpectRow, {Control, Row}, "ID ROW", "this row is selected; none is row -1"},
    Form{"expect", "rows", Verb::ExpectRows, {Control, Number}, "ID COUNT", "it has so many rows"},
    Form{"expect",
         "item",
         Verb::ExpectItem,
         {Control, Row, Wanted},
         "ID ROW \"text\"",
         "this row shows this text"},
    Form{"expect", "text", Verb::ExpectText, {Control, Text}, "ID \"text\"", "the control shows this text"},
    Form{"expect", "enabled", Verb::ExpectEnabled, {Control}, "ID", ""},
    Form{"expect", "disabled", Verb::ExpectDisabled, {Control}, "ID", ""},
    Form{"expect", "visible", Verb::ExpectVisible, {Control}, "ID", ""},
    Form{"expect", "hidden", Verb::ExpectHidden, {Control}, "ID", ""},
    Form{"expect", "checked", Verb::ExpectChecked, {Control, OnOff}, "ID on|off", ""},
    Form{"expect", "focus", Verb::ExpectFocus, {Control}, "ID", "the control has the keyboard focus"},
    Form{"expect",
         "running",
         Verb::ExpectRunning,
         {Text, Number},
         "FILE.exe COUNT",
         "so many processes of this program run"},
    Form{"expect", "bank", Verb::ExpectBank, {Argument::Bank, Keyword, Number}, "BANK KEYWORD VALUE", ""},
    Form{"expect", "value", Verb::ExpectValue, {Name, Wanted}, "NAME VALUE", ""},
    Form{"expect", "page", Verb::ExpectPage, {Text}, "TITLE", "this page is shown"},
    Form{"expect", "message", Verb::ExpectMessage, {Text}, "\"text\"", "a message box with this text is up"},
};

// A decimal number that is at least `minimum` and at most `maximum`.
std::optional<std::int64_t> ToNumber(const Word& word, std::int64_t minimum, std::int64_t maximum) {
    std::int64_t number = 0;
    const char* end = word.text.data() + word.text.size();
    const auto [stop, status] = std::from_chars(word.text.data(), end, number);
    if (word.quoted || status != std::errc{} || stop != end || number < minimum || number > maximum)
        return std::nullopt;
    return number;
}

std::int64_t NumberOf(const Word& word, std::int64_t minimum, std::int64_t maximum, std::string_view what) {
    const auto number = ToNumber(word, minimum, maximum);
    if (!number)
        FailLine(Quoted(word.text) + " is not " + std::string(what));
    return *number;
}

template <typename Value, std::size_t Count>
Value OneOf(const Word& word, const std::array<std::pair<std::string_view, Value>, Count>& choices) {
    std::string names;
    for (const auto& [name, value] : choices) {
        if (!word.quoted && word.text == name)
            return value;
        names += (names.empty() ? "" : ", ") + std::string(name);
    }
    FailLine(Quoted(word.text) + " is none of " + names);
}

constexpr std::array<std::pair<std::string_view, int>, 3> kSheetButtons{
    {{"ok", kOkButton}, {"cancel", kCancelButton}, {"apply", kApplyButton}}};
constexpr std::array<std::pair<std::string_view, int>, 4> kBoxButtons{
    {{"ok", kOkButton}, {"yes", kYesButton}, {"no", kNoButton}, {"cancel", kCancelButton}}};
constexpr std::array<std::pair<std::string_view, std::uint32_t>, 6> kKeys{{{"enter", kEnterKey},
                                                                           {"escape", kEscapeKey},
                                                                           {"tab", kTabKey},
                                                                           {"up", kUpKey},
                                                                           {"down", kDownKey},
                                                                           {"space", kSpaceKey}}};
constexpr std::array<std::pair<std::string_view, std::uint32_t>, 2> kOnOff{{{"on", 1}, {"off", 0}}};
constexpr std::array<std::pair<std::string_view, script::Bank>, 4> kBanks{
    {{"Current", script::Bank::Current},
     {"Default", script::Bank::Default},
     {"Favorite", script::Bank::Favorite},
     {"Preview", script::Bank::Preview}}};

int ControlOf(const Word& word) {
    for (const auto& [name, id] : kSheetButtons)
        if (!word.quoted && word.text == name)
            return id;
    return static_cast<int>(NumberOf(word, 1, 0xFFFF, "a control id"));
}

std::string NameOf(const Word& word) {
    const bool isName =
        !word.text.empty() && word.text.size() < 128 && std::ranges::all_of(word.text, [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        });
    if (!isName)
        FailLine(Quoted(word.text) + " is not the name of a value");
    return word.text;
}

void Take(Action& action, Argument argument, const Word& word) {
    constexpr std::int64_t kLastRow = 0xFFFF;
    switch (argument) {
    case None: break;
    case Control: action.control = ControlOf(word); break;
    case Row: action.row = static_cast<int>(NumberOf(word, -1, kLastRow, "a row")); break;
    case RowOrText:
        if (word.quoted)
            action.text = word.text;
        else
            action.row = static_cast<int>(NumberOf(word, 0, kLastRow, "a row; a text stands in quotes"));
        break;
    case Text: action.text = word.text; break;
    case File:
        if (word.text.empty())
            FailLine("no file name");
        action.text = word.text;
        break;
    case OnOff: action.number = OneOf(word, kOnOff); break;
    case SheetButton: action.control = OneOf(word, kSheetButtons); break;
    case BoxButton: action.control = OneOf(word, kBoxButtons); break;
    case Argument::Bank: action.bank = OneOf(word, kBanks); break;
    case Keyword:
        action.keyword =
            static_cast<int>(NumberOf(word, 0, std::numeric_limits<int>::max(), "a keyword's number"));
        break;
    case Number:
        action.number = static_cast<std::uint32_t>(
            NumberOf(word, 0, std::numeric_limits<std::uint32_t>::max(), "a number from 0 to 4294967295"));
        break;
    case KeyName: action.number = OneOf(word, kKeys); break;
    case Milliseconds:
        action.number = static_cast<std::uint32_t>(NumberOf(word, 0, 3'600'000, "a time in milliseconds"));
        break;
    case Name: action.text = NameOf(word); break;
    case Wanted: action.wanted = word.text; break;
    }
}

const Form& FormOf(std::span<const Word> words) {
    for (const Form& form : kForms) {
        if (words[0].quoted || words[0].text != form.first)
            continue;
        if (form.second.empty() || (words.size() > 1 && !words[1].quoted && words[1].text == form.second))
            return form;
    }
    if (words[0].text == "expect")
        FailLine(words.size() > 1 ? "nothing called " + Quoted(words[1].text) + " can be expected"
                                  : "expect what?");
    FailLine("unknown action " + Quoted(words[0].text));
}

std::string Signature(const Form& form) {
    std::string text(form.first);
    for (const std::string_view part : {form.second, form.usage})
        if (!part.empty())
            text += " " + std::string(part);
    return text;
}

Action Read(std::span<const Word> words) {
    const Form& form = FormOf(words);
    Action action;
    action.verb = form.verb;
    words = words.subspan(form.second.empty() ? 1 : 2);
    const auto count = static_cast<std::size_t>(
        std::ranges::count_if(form.arguments, [](Argument argument) { return argument != None; }));
    if (words.size() != count)
        FailLine((words.size() < count ? "too few words, wanted: " : "too many words, wanted: ") +
                 Signature(form));
    for (std::size_t i = 0; i < count; ++i)
        Take(action, form.arguments[i], words[i]);
    return action;
}

} // namespace

Script Parse(std::string_view text) {
    Script script;
    if (text.size() > kMaximumSize) {
        script.error = Error{0, "longer than a script may be"};
        return script;
    }
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = TakeLine(text);
        try {
            const std::vector<Word> words = Words(line);
            if (words.empty())
                continue;
            script.actions.push_back(Read(words));
            script.actions.back().line = number;
        } catch (const std::string& message) {
            script.error = Error{number, message};
            break;
        }
    }
    return script;
}

std::string Usage() {
    constexpr std::size_t kColumn = 32;
    std::string text;
    for (const Form& form : kForms) {
        std::string line = "  " + Signature(form);
        if (!form.meaning.empty()) {
            line.resize(std::max(line.size() + 1, kColumn), ' ');
            line += form.meaning;
        }
        text += line + "\n";
    }
    return text;
}

std::string Describe(std::string_view file, const Error& error) {
    std::string text(file);
    if (error.line > 0)
        text += ":" + std::to_string(error.line);
    return text + ": " + error.message;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '\n') {
            quoted += "\\n";
            continue;
        }
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

} // namespace script
