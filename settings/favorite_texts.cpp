#include "settings/favorite_texts.h"

#include "Common/name_index.h"
#include "Common/text.h"
#include "settings/print_option_tag_access.h"
#include "settings/xml_document.h"

#include <algorithm>
#include <utility>

namespace {

constexpr auto kNames = std::to_array<std::string_view>({
    "FileVer",
    "IotVer",
    "CharCode",
    "Comment",
    "PageSize",
#define ZR_TAG(key, longName, description) #longName,
#include "settings/tag_table.def"
});
static_assert(kNames.size() == kFavoriteNames);

constexpr std::string_view NameOf(std::size_t row) {
    return kNames[row];
}
constexpr NameIndex<kFavoriteNames, NameOf> kByName;

constexpr std::array kPasswordRows{kByName.Find("SecPrintPassword"), kByName.Find("RscPassword"),
                                   kByName.Find("AuthJobPassword")};
static_assert(std::ranges::min(kPasswordRows) >= 0);

constexpr std::size_t kLongestText = kOptionValueSize - 1;

std::string_view CutText(std::string_view text) {
    return text.substr(0, CutLength(text, kLongestText));
}

} // namespace

std::string_view FavoriteElementName(std::size_t row) {
    return kNames[row];
}

FavoriteTexts::FavoriteTexts(const XmlElements& elements) {
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::array<std::size_t, kFavoriteNames> last;
    last.fill(kNone);
    for (std::size_t index = 0; index < elements.size(); ++index)
        if (const int row = kByName.Find(elements[index].name); row >= 0)
            last[static_cast<std::size_t>(row)] = index;

    std::size_t size = 0;
    for (const std::size_t index : last)
        if (index != kNone)
            size += CutText(elements[index].text).size();
    m_texts.reserve(size);
    for (std::size_t row = 0; row < kFavoriteNames; ++row) {
        if (last[row] == kNone)
            continue;
        const std::string_view text = CutText(elements[last[row]].text);
        m_spans[row] = {static_cast<std::uint32_t>(m_texts.size()), static_cast<std::uint32_t>(text.size())};
        m_texts += text;
    }
}

std::optional<std::string_view> FavoriteTexts::Find(std::size_t row) const {
    const Span& span = m_spans[row];
    if (span.begin == kMissing)
        return std::nullopt;
    return std::string_view(m_texts).substr(span.begin, span.size);
}

bool FavoriteTexts::HasPassword() const {
    return std::ranges::any_of(kPasswordRows, [this](int row) {
        const auto text = Find(static_cast<std::size_t>(row));
        return text && !text->empty();
    });
}

std::size_t FavoriteTexts::Bytes() const {
    return sizeof *this + m_texts.capacity() + 1;
}

std::shared_ptr<const FavoriteTexts> FavoriteDocument::Texts() {
    if (!m_texts && m_document)
        if (const auto elements = m_document->Elements())
            m_texts = std::make_shared<const FavoriteTexts>(*elements);
    return m_texts;
}

bool FavoriteDocument::FindLast(std::string_view name, std::optional<std::string>& text) {
    text.reset();
    if (const int row = kByName.Find(name); row >= 0) {
        const auto texts = Texts();
        if (!texts)
            return false;
        if (const auto found = texts->Find(static_cast<std::size_t>(row)))
            text.emplace(*found);
        return true;
    }
    if (!m_document)
        return true;
    const auto found = m_document->TextsByTagName(name);
    if (!found)
        return false;
    if (!found->empty())
        text.emplace(CutText(found->back()));
    return true;
}
