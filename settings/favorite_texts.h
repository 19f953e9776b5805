// The texts of a favourite file's elements, by name: the last element of a name wins, wherever it stands.
#pragma once

#include "settings/InterchangeOptionTag.h"
#include "settings/xml_elements.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

class XmlDocument;

// The elements of a favourite that tell of the file itself, in the order in which they stand and are read.
enum class FavoriteHeader : std::size_t { FileVer, IotVer, CharCode, Comment, PageSize, Count };

inline constexpr std::size_t kFavoriteHeaders = static_cast<std::size_t>(FavoriteHeader::Count);
inline constexpr std::size_t kFavoriteNames = kFavoriteHeaders + kTagCount;

// Rows 0 to kFavoriteNames - 1: the headers, then the long names of the tag table in its order.
std::string_view FavoriteElementName(std::size_t row);

// Immutable, so that it can be shared. A text is cut on a character boundary to what fits into a buffer of
// kOptionValueSize bytes.
class FavoriteTexts {
  public:
    explicit FavoriteTexts(const XmlElements& elements);

    // Nothing if no element has the row's name. The text is valid as long as this object is there.
    std::optional<std::string_view> Find(std::size_t row) const;

    bool HasPassword() const;

    // The memory that this object takes in all.
    std::size_t Bytes() const;

  private:
    struct Span {
        std::uint32_t begin = kMissing;
        std::uint32_t size = 0;
    };
    static constexpr std::uint32_t kMissing = 0xFFFFFFFF;

    std::string m_texts;
    std::array<Span, kFavoriteNames> m_spans{};
};

// What a favourite is read from: a document, whose elements are walked once, when they are first asked for,
// or texts that are known already.
class FavoriteDocument {
  public:
    // The document must live as long as this does.
    explicit FavoriteDocument(XmlDocument& document) : m_document(&document) {}
    explicit FavoriteDocument(std::shared_ptr<const FavoriteTexts> texts) : m_texts(std::move(texts)) {}
    virtual ~FavoriteDocument() = default;
    FavoriteDocument(const FavoriteDocument&) = delete;
    FavoriteDocument& operator=(const FavoriteDocument&) = delete;

    // Null if the elements can't be listed.
    virtual std::shared_ptr<const FavoriteTexts> Texts();

    // Sets `text` to the last text of any name, or to nothing without such an element; a name that has no row
    // is looked for in the document, if there is one. False if the elements can't be listed.
    bool FindLast(std::string_view name, std::optional<std::string>& text);

  private:
    XmlDocument* m_document = nullptr;
    std::shared_ptr<const FavoriteTexts> m_texts;
};
