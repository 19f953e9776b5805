#include "Common/text_lines.h"

namespace {

constexpr char kEndOfText = 0x1A; // Ctrl-Z

} // namespace

std::optional<char> TextLines::Byte() {
    if (m_at == m_end) {
        m_at = 0;
        m_end = m_done ? 0 : m_source.Read(m_buffer);
        if (m_end == 0) {
            m_done = true;
            return std::nullopt;
        }
    }
    return m_buffer[m_at++];
}

std::optional<char> TextLines::Character() {
    const std::optional<char> byte = Byte();
    if (byte == kEndOfText) {
        m_done = true;
        m_at = m_end;
        return std::nullopt;
    }
    if (byte != '\r')
        return byte;
    const std::optional<char> next = Byte();
    if (next == '\n')
        return next;
    // The byte just read stands in the buffer, also if it is the first of a new filling.
    if (next)
        --m_at;
    return byte;
}

bool TextLines::Next(std::string& line) {
    line.clear();
    while (const std::optional<char> character = Character()) {
        if (*character == '\n')
            return true;
        line.push_back(*character);
    }
    return !line.empty();
}
