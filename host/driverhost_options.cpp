#include "host/driverhost_options.h"

#include "host/dump.h"
#include "host/script.h"

#include <charconv>

namespace driverhost {
namespace {

// Takes the words one after the other; a wrong one leaves its message in the options.
class Reader {
  public:
    explicit Reader(std::span<const std::string> words) : m_words(words) {}

    Options Read() {
        while (m_next < m_words.size() && m_options.error.empty())
            Take(m_words[m_next++]);
        if (m_options.error.empty())
            CheckTogether();
        return m_options;
    }

  private:
    void Take(const std::string& word) {
        if (word == "--printer")
            m_options.printer = Argument(word);
        else if (word == "--ppd")
            m_options.ppd = Argument(word);
        else if (word == "--installed")
            m_options.installed = true;
        else if (word == "--script")
            m_options.script = Argument(word);
        else if (word == "--timeout")
            TakeTimeout(Argument(word));
        else if (word == "--device")
            Choose(Command::DeviceSheet, word);
        else if (word == "--dump")
            Choose(Command::Dump, word);
        else if (word == "--remove")
            Choose(Command::Remove, word);
        else if (word == "--help" || word == "-h" || word == "/?")
            Choose(Command::Help, word);
        else if (word == "--version")
            Choose(Command::Version, word);
        else
            Fail("unknown argument " + word);
    }

    std::string Argument(const std::string& word) {
        if (m_next == m_words.size() || m_words[m_next].empty()) {
            Fail(word + " needs an argument");
            return "";
        }
        return m_words[m_next++];
    }

    void TakeTimeout(const std::string& word) {
        if (!m_options.error.empty())
            return;
        int seconds = 0;
        const char* end = word.data() + word.size();
        const auto [stop, status] = std::from_chars(word.data(), end, seconds);
        if (status != std::errc{} || stop != end || seconds < 1 || seconds > 86'400)
            Fail("--timeout needs a number of seconds from 1 to 86400");
        m_options.timeout = seconds;
    }

    void Choose(Command command, const std::string& word) {
        if (m_options.command != Command::DocumentSheet)
            Fail(word + " goes with no other command");
        m_options.command = command;
    }

    void CheckTogether() {
        const bool sheet =
            m_options.command == Command::DocumentSheet || m_options.command == Command::DeviceSheet;
        if (!sheet && !m_options.script.empty())
            Fail("--script needs a sheet to play on");
        if (!sheet && m_options.installed)
            Fail("--installed goes with a sheet");
        if (m_options.installed && !m_options.ppd.empty())
            Fail("--ppd installs, and --installed does not");
    }

    void Fail(std::string message) {
        if (m_options.error.empty())
            m_options.error = std::move(message);
    }

    std::span<const std::string> m_words;
    std::size_t m_next = 0;
    Options m_options;
};

} // namespace

Options ParseOptions(std::span<const std::string> words) {
    return Reader(words).Read();
}

std::optional<int> TimeLimit(const Options& options) {
    if (!options.timeout && !options.script.empty())
        return kScriptTimeout;
    return options.timeout;
}

std::string HelpText() {
    return std::string(R"(driverhost: opens the sheets of a printer of the Zephra PostScript driver

  driverhost [--printer NAME] [--script FILE]   the printing preferences (document sheet)
  driverhost --device [--script FILE]           the printer's properties (device sheet)
  driverhost --dump                             the stored settings as text
  driverhost --remove                           removes printer, driver and stored settings
  driverhost --help | --version

  --printer NAME      the printer's name, "Orvane X100" unless told
  --ppd FILE          installs with this device description instead of the program's own x100.ppd
  --installed         takes the printer as it is; nothing is installed or brought up to date
  --script FILE       plays the actions of FILE on the sheet; see below
  --timeout SECONDS   cancels a sheet that is open for longer; with a script 60 unless told

Unless told otherwise, the printer is installed from the files beside this program, and an installed one is
brought up to date with them. The settings are kept per user and printer in %APPDATA%\Zephra\Printers; a change is kept by OK only.
The exit status is 0 if all went well, 1 if not, 2 for a wrong command line. A person's Cancel is not a failure.

A script is UTF-8 text, one action a line, # starts a comment. Words with blanks stand in double quotes, in
which \" \\ \n are a quote, a backslash, a line feed. The first action that fails cancels the sheet and is told
as FILE:LINE: message. A sheet that is open when the script ends is cancelled. ID is a control's number on the
page in front, or ok, cancel or apply.

)") + script::Usage() +
           "\n" + dump::FormatText();
}

} // namespace driverhost
