// An XML document: the few operations that favourite files need. The product's is the platform's XML document
// object, the native build's is libxml2's. Names and texts are in the process's ANSI code page on both sides
// of a conversion that never splits a character; each character that the code page lacks is read as one '?',
// so a name that has such a character equals none that is known.
#pragma once

#include "Common/platform_files.h"
#include "settings/xml_elements.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The XML layer could not make a document. The code is the HRESULT that is raised.
class XmlLayerError : public std::exception {
  public:
    static constexpr std::uint32_t kNoDocument = 0x80004003; // E_POINTER

    explicit XmlLayerError(std::uint32_t code) : m_code(code) {}
    std::uint32_t Code() const { return m_code; }
    const char* what() const noexcept override { return "the XML layer could not make a document"; }

  private:
    std::uint32_t m_code;
};

// A node of one document, held by its user; it goes before its document does.
class XmlNode {
  public:
    XmlNode() = default;
    virtual ~XmlNode() = default;
    XmlNode(const XmlNode&) = delete;
    XmlNode& operator=(const XmlNode&) = delete;
};
using XmlNodeOwner = std::unique_ptr<XmlNode>;

class XmlDocument {
  public:
    XmlDocument() = default;
    virtual ~XmlDocument() = default;
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    // Null if the node can't be made, which is so for a name that is none and for a text that would end its
    // node early. Control characters are left out of a text, so that what was written can be read.
    virtual XmlNodeOwner CreateProcessingInstruction(std::string_view target, std::string_view text) = 0;
    virtual XmlNodeOwner CreateComment(std::string_view text) = 0;
    virtual XmlNodeOwner CreateElement(std::string_view name) = 0;
    virtual XmlNodeOwner CreateTextNode(std::string_view text) = 0;

    // The child becomes the last one of the document or of `parent`. Nodes are this document's own.
    virtual bool AppendChild(XmlNode& child) = 0;
    virtual bool AppendChild(XmlNode& parent, XmlNode& child) = 0;

    // The root element; null in an empty document.
    virtual XmlNodeOwner DocumentElement() = 0;

    // Every element with its text, found in one walk. Nothing if the walk can't be finished.
    virtual std::optional<XmlElements> Elements() = 0;

    // The texts of all elements of this name, in document order. Nothing if they can't be listed.
    // Where more than one name is sought, Elements() is faster by orders of magnitude.
    virtual std::optional<std::vector<std::string>> TextsByTagName(std::string_view name) = 0;

    // False for what is too large, declares a document type or an entity, or is no XML; the document is empty
    // then.
    bool Load(ByteSource& file);
    bool Load(std::string_view bytes);

    // Puts the document in the place of the file, whole: when it fails the old file is as it was.
    bool Save(const char* path);

    // Appends the document's bytes as a file has them.
    virtual bool Serialize(std::string& bytes) = 0;

  protected:
    virtual bool Parse(std::string_view bytes) = 0;
    virtual bool HasDoctype() = 0;
    virtual void Clear() noexcept = 0;
};

// The platform's XML layer, started for the calling thread as long as this lives. Documents go before it, on
// the thread that made them.
class XmlLayer {
  public:
    XmlLayer();
    ~XmlLayer();
    XmlLayer(const XmlLayer&) = delete;
    XmlLayer& operator=(const XmlLayer&) = delete;

    // An empty document; raises XmlLayerError.
    std::unique_ptr<XmlDocument> CreateDocument();

  private:
    class Apartment;
    std::unique_ptr<Apartment> m_apartment;
};
