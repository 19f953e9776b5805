// The lines of a text file, read as the platform reads text: a carriage return in front of a line feed is
// dropped, and Ctrl-Z ends the file.
#pragma once

#include "Common/platform_files.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

class TextLines {
  public:
    explicit TextLines(ByteSource& source) : m_source(source) {}

    // The next line without its line feed; NUL is a character like any other. False if there is none: what
    // follows the last line feed is a line only if it isn't empty.
    bool Next(std::string& line);

  private:
    std::optional<char> Byte();
    // A character of the text, after translation.
    std::optional<char> Character();

    ByteSource& m_source;
    std::array<char, 4096> m_buffer;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    bool m_done = false;
};
