#include "host/script_words.h"

#include "host/utf8.h"

#include <algorithm>
#include <utility>

namespace script {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

void CheckCharacters(std::string_view line) {
    while (!line.empty()) {
        const std::size_t length = Utf8SequenceLength(line);
        if (length == 0)
            FailLine("not UTF-8");
        const unsigned char lead = static_cast<unsigned char>(line.front());
        if ((lead < 0x20 && lead != '\t') || lead == 0x7F)
            FailLine("control character");
        line.remove_prefix(length);
    }
}

// Takes a quoted word off the head of `line`, which begins with its quote.
Word TakeQuoted(std::string_view& line) {
    Word word{"", true};
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '"') {
            line.remove_prefix(i + 1);
            if (!line.empty() && !IsBlank(line.front()))
                FailLine("no blank after a closing quote");
            return word;
        }
        if (line[i] != '\\') {
            word.text += line[i];
            continue;
        }
        if (++i == line.size())
            break;
        switch (line[i]) {
        case 'n': word.text += '\n'; break;
        case '"':
        case '\\': word.text += line[i]; break;
        default: FailLine("unknown escape in a quoted text");
        }
    }
    FailLine("no closing quote");
}

Word TakeBare(std::string_view& line) {
    const std::size_t length = std::min(line.find_first_of(" \t"), line.size());
    Word word{std::string(line.substr(0, length)), false};
    if (word.text.find('"') != std::string::npos)
        FailLine("quote inside a word");
    line.remove_prefix(length);
    return word;
}

} // namespace

[[noreturn]] void FailLine(std::string message) {
    throw std::move(message);
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::vector<Word> Words(std::string_view line) {
    CheckCharacters(line);
    std::vector<Word> words;
    for (;;) {
        while (!line.empty() && IsBlank(line.front()))
            line.remove_prefix(1);
        if (line.empty() || line.front() == '#')
            return words;
        words.push_back(line.front() == '"' ? TakeQuoted(line) : TakeBare(line));
    }
}

} // namespace script
