#include "host/ppd_statements.h"

#include "host/utf8.h"

#include <algorithm>

namespace ppd {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

// The bytes of one "<...>" part, appended. False if it is not pairs of hexadecimal digits.
bool AppendHex(std::string_view part, std::string& out) {
    int high = -1;
    for (char c : part) {
        if (IsBlank(c))
            continue;
        int digit = HexDigit(c);
        if (digit < 0)
            return false;
        if (high < 0) {
            high = digit;
        } else {
            out.push_back(static_cast<char>(high * 16 + digit));
            high = -1;
        }
    }
    return high < 0;
}

} // namespace

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view TakeWord(std::string_view& text) {
    text = Trim(text);
    auto end = std::ranges::find_if(text, IsBlank);
    std::string_view word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(word.size());
    return word;
}

std::optional<std::string> DecodeText(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        std::size_t open = text.find('<');
        out.append(text.substr(0, open));
        if (open == std::string_view::npos)
            break;
        std::size_t close = text.find('>', open);
        if (close == std::string_view::npos || !AppendHex(text.substr(open + 1, close - open - 1), out))
            return std::nullopt;
        text.remove_prefix(close + 1);
    }
    // A decoded control character would reach window texts.
    bool control = std::ranges::any_of(out, [](unsigned char c) { return c < 0x20 || c == 0x7F; });
    if (control || out.size() > kMaxTextLength || !IsUtf8(out))
        return std::nullopt;
    return out;
}

bool StatementReader::Fail(std::string message) {
    m_error = PpdError{m_line, std::move(message)};
    return false;
}

// Lines end in CR, LF or both.
bool StatementReader::NextLine(std::string_view& line) {
    if (m_rest.empty())
        return false;
    ++m_line;
    std::size_t end = m_rest.find_first_of("\r\n");
    line = m_rest.substr(0, end);
    if (end == std::string_view::npos) {
        m_rest = {};
    } else {
        std::size_t stop = m_rest[end] == '\r' && m_rest.substr(end + 1, 1) == "\n" ? 2 : 1;
        m_rest.remove_prefix(end + stop);
    }
    return true;
}

bool StatementReader::Next(Statement& statement) {
    std::string_view line;
    while (!m_error && NextLine(line)) {
        if (Trim(line).empty() || line.starts_with("*%"))
            continue;
        if (!line.starts_with('*'))
            return Fail("The line does not begin with an asterisk.");
        if (Trim(line) == "*End" || Trim(line) == "*SymbolEnd")
            continue;
        statement = {};
        statement.line = m_line;
        return ReadHead(line.substr(1), statement);
    }
    return false;
}

bool StatementReader::ReadHead(std::string_view line, Statement& statement) {
    auto end = std::ranges::find_if(line, [](char c) { return IsBlank(c) || c == ':' || c == '/'; });
    statement.main = line.substr(0, static_cast<std::size_t>(end - line.begin()));
    line.remove_prefix(statement.main.size());
    if (statement.main.empty())
        return Fail("The asterisk is followed by no keyword.");
    // A language in front of the keyword makes it longer than the format's own limit.
    if (statement.main.size() > 2 * kMaxKeywordLength)
        return Fail("The keyword is too long.");

    line = Trim(line);
    std::size_t stop = line.find_first_of("/:");
    statement.option = Trim(line.substr(0, stop));
    if (stop == std::string_view::npos)
        return true;
    line.remove_prefix(stop);
    if (line.front() == '/') {
        std::size_t colon = line.find(':');
        if (colon == std::string_view::npos)
            return Fail("A text behind a slash is not ended by a colon.");
        statement.text = Trim(line.substr(1, colon - 1));
        line.remove_prefix(colon);
    }
    statement.hasColon = true;
    return ReadValue(line.substr(1), statement);
}

bool StatementReader::ReadValue(std::string_view rest, Statement& statement) {
    rest = Trim(rest);
    if (rest.starts_with('"'))
        return ReadQuoted(rest.substr(1), statement);
    statement.value = rest;
    return true;
}

// A quoted value may go on over lines; a line of its own, *End, then ends the statement.
bool StatementReader::ReadQuoted(std::string_view rest, Statement& statement) {
    statement.quoted = true;
    const char* begin = rest.data();
    bool severalLines = false;
    std::size_t quote = rest.find('"');
    while (quote == std::string_view::npos) {
        severalLines = true;
        if (!NextLine(rest)) {
            m_line = statement.line;
            return Fail("The quoted value is not ended.");
        }
        quote = rest.find('"');
    }
    statement.value = {begin, static_cast<std::size_t>(rest.data() + quote - begin)};
    rest = Trim(rest.substr(quote + 1));
    if (!rest.empty() && !rest.starts_with('/'))
        return Fail("The quoted value is followed by other text.");
    return !severalLines || ReadEnd();
}

bool StatementReader::ReadEnd() {
    std::string_view line;
    if (NextLine(line) && (Trim(line) == "*End" || Trim(line) == "*SymbolEnd"))
        return true;
    return Fail("A value of several lines is not followed by *End.");
}

} // namespace ppd
