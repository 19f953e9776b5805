#include "settings/xml_elements.h"

XmlElement XmlElements::operator[](std::size_t index) const {
    const Span& span = m_spans[index];
    return {std::string_view(m_names).substr(span.nameBegin, span.nameEnd - span.nameBegin),
            std::string_view(m_texts).substr(span.textBegin, span.textEnd - span.textBegin)};
}

void XmlElements::Open(std::string_view name) {
    const std::size_t nameBegin = m_names.size();
    m_names += name;
    m_open.push_back(m_spans.size());
    m_spans.push_back({nameBegin, m_names.size(), m_texts.size(), m_texts.size()});
}

void XmlElements::Close() {
    m_spans[m_open.back()].textEnd = m_texts.size();
    m_open.pop_back();
}
