// Attacks invariants 19 to 21 of docs/security.md: any bytes are read as a device profile, against the real
// items and against a few that the input names, and only what the table says is written.
#include "Common/profile_items.h"
#include "Common/text_lines.h"
#include "tests/Common/memory_source.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

// The lines of a text by another way: translated as a whole, then cut.
std::vector<std::string> LinesOf(std::string text) {
    text.resize(std::min(text.size(), text.find('\x1A')));
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;)
        text.erase(at, 1);
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(text.substr(begin, end - begin));
    if (begin < text.size())
        lines.push_back(text.substr(begin));
    return lines;
}

// The slot of the real table that takes a line.
std::size_t TakingSlot(const std::string& line) {
    if (line.find("HasOption_InputSlot") != std::string::npos) {
        for (std::size_t slot = 0; slot < 3; ++slot)
            if (line.find("Tray" + std::to_string(slot + 1)) != std::string::npos)
                return slot;
    }
    return 3;
}

void ReadRealProfile(std::string_view text, std::size_t most) {
    std::array<ProfileItem, kProfileItemCount> fresh;
    InitProfileItems(fresh);
    auto items = fresh;

    MemorySource source(text, most);
    TextLines lines(source);
    std::string line;
    std::array<std::int32_t, kProfileItemCount> expected{};
    for (const std::string& expectedLine : LinesOf(std::string(text))) {
        Require(lines.Next(line) && line == expectedLine);
        expected[TakingSlot(line)] = 1;
        ScanProfileLine(items, line);
    }
    Require(!lines.Next(line));
    for (std::size_t slot = 0; slot < items.size(); ++slot)
        Require(items[slot].exists == expected[slot] && items[slot].name == fresh[slot].name &&
                items[slot].type == fresh[slot].type && items[slot].value == fresh[slot].value);
}

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(reinterpret_cast<const char*>(data), size) {}

    std::size_t Byte() {
        const std::string_view byte = Bytes(1);
        return byte.empty() ? 0 : static_cast<unsigned char>(byte[0]);
    }
    std::string_view Bytes(std::size_t count) {
        const std::string_view bytes = m_rest.substr(0, count);
        m_rest.remove_prefix(bytes.size());
        return bytes;
    }
    std::string_view Rest() const { return m_rest; }

  private:
    std::string_view m_rest;
};

int CountChanged(const std::vector<ProfileItem>& items, const std::vector<ProfileItem>& before) {
    int changed = 0;
    for (std::size_t i = 0; i < items.size(); ++i)
        changed += items[i].name != before[i].name || items[i].type != before[i].type ||
                   items[i].value != before[i].value || items[i].exists != before[i].exists;
    return changed;
}

void ReadOwnProfile(Input& input, std::size_t most) {
    std::vector<ProfileItem> items(input.Byte() % 6);
    for (ProfileItem& item : items) {
        item.type = static_cast<std::int32_t>(input.Byte() % 4) - 1;
        item.name = input.Bytes(input.Byte() % 4);
        item.value = input.Bytes(input.Byte() % 3);
    }
    const auto initial = items;
    auto before = items; // as the last line found them

    MemorySource source(input.Rest(), most);
    TextLines lines(source);
    std::string line;
    try {
        while (lines.Next(line)) {
            before = items;
            ScanProfileLine(items, line);
            Require(CountChanged(items, before) <= 1);
        }
    } catch (const std::out_of_range& error) {
        Require(std::strcmp(error.what(), "invalid string position") == 0);
        Require(!items.empty() && CountChanged(items, before) == 0);
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool isText = items[i].type == profile_item_type::Text;
        Require(items[i].name == initial[i].name && items[i].type == initial[i].type);
        Require(isText ? items[i].exists == 0 : items[i].value == initial[i].value);
        Require(items[i].type == profile_item_type::Presence || items[i].exists == 0);
        Require(items[i].value.size() <= std::max(input.Rest().size(), initial[i].value.size()));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::size_t mode = input.Byte();
    // Short reads put every byte at the edge of a buffer once.
    const std::size_t most = mode & 2u ? 1 + mode / 4 % 8 : 4096;
    if (mode & 1u)
        ReadOwnProfile(input, most);
    else
        ReadRealProfile(input.Rest(), most);
    return 0;
}
