// The elements of a document, as one walk over it finds them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

struct XmlElement {
    std::string_view name;
    std::string_view text; // of the element and all elements in it, without comments
};

// Elements stand in the order in which they begin. The texts of nested elements share their bytes, so a deep
// document takes no more memory than its file. Views are valid as long as the object is there and unchanged.
class XmlElements {
  public:
    std::size_t size() const { return m_spans.size(); }
    XmlElement operator[](std::size_t index) const;

    // Filled by a walk: each element is opened, given its text piece by piece, and closed.
    void Open(std::string_view name);
    void AddText(std::string_view text) { m_texts += text; }
    void Close();

  private:
    struct Span {
        std::size_t nameBegin;
        std::size_t nameEnd;
        std::size_t textBegin;
        std::size_t textEnd;
    };

    std::string m_names;
    std::string m_texts;
    std::vector<Span> m_spans;
    std::vector<std::size_t> m_open; // indices into m_spans
};
