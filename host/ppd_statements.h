// The lines of a PostScript printer description cut into statements: "*Main Option/Text: value".
#pragma once

#include "host/ppd.h"

namespace ppd {

// The views point into the file. A part that the statement lacks is empty.
struct Statement {
    std::size_t line = 0;
    std::string_view main;   // without the asterisk
    std::string_view option; // the option keyword, with its asterisk if it has one
    std::string_view text;   // behind the slash, not decoded
    std::string_view value;  // without quotes; trimmed if it had none
    bool hasColon = false;
    bool quoted = false;
};

// Reads a description statement by statement, comments and *End lines left out.
class StatementReader {
  public:
    explicit StatementReader(std::string_view bytes) : m_rest(bytes) {}

    // False at the end and on an error.
    bool Next(Statement& statement);

    const std::optional<PpdError>& Error() const { return m_error; }
    std::size_t Line() const { return m_line; }

  private:
    bool NextLine(std::string_view& line);
    bool ReadHead(std::string_view line, Statement& statement);
    bool ReadValue(std::string_view rest, Statement& statement);
    bool ReadQuoted(std::string_view rest, Statement& statement);
    bool ReadEnd();
    bool Fail(std::string message);

    std::string_view m_rest;
    std::size_t m_line = 0;
    std::optional<PpdError> m_error;
};

std::string_view Trim(std::string_view text);

// The next word of `text`, taken off it with the blanks in front; "" at its end.
std::string_view TakeWord(std::string_view& text);

// A translation with its hexadecimal parts ("<82A0>") decoded; nothing if they are malformed, the result
// isn't UTF-8, or it is longer than kMaxTextLength.
std::optional<std::string> DecodeText(std::string_view text);

} // namespace ppd
