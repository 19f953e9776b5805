#include "settings/cp932.h"
#include "settings/xml_document.h"
#include "settings/xml_safety.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlsave.h>

namespace {

struct DocumentFreer {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using UniqueDocument = std::unique_ptr<xmlDoc, DocumentFreer>;

struct NodeFreer {
    void operator()(xmlNode* node) const { xmlFreeNode(node); }
};
using UniqueNode = std::unique_ptr<xmlNode, NodeFreer>;

struct BufferFreer {
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

struct TextFreer {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using UniqueText = std::unique_ptr<xmlChar, TextFreer>;

const xmlChar* XmlChars(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string_view View(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

// Owns its node until it is appended.
class Node : public XmlNode {
  public:
    explicit Node(UniqueNode detached) : m_detached(std::move(detached)), m_node(m_detached.get()) {}
    explicit Node(xmlNode* ofDocument) : m_node(ofDocument) {}

    xmlNode* Get() const { return m_node; }

    bool AppendTo(xmlNode* parent) {
        if (!m_detached)
            return false;
        // A text behind a text is merged into that, and freed.
        xmlNode* added = xmlAddChild(parent, m_detached.get());
        if (!added)
            return false;
        (void)m_detached.release();
        m_node = added;
        return true;
    }

  private:
    UniqueNode m_detached;
    xmlNode* m_node;
};

XmlNodeOwner Owner(xmlNode* made) {
    return made ? std::make_unique<Node>(UniqueNode(made)) : nullptr;
}

bool IsText(const xmlNode& node) {
    return node.type == XML_TEXT_NODE || node.type == XML_CDATA_SECTION_NODE;
}

// A document takes one element, comments and instructions.
bool IsTaken(const xmlDoc* document, const xmlNode* child) {
    switch (child->type) {
    case XML_ELEMENT_NODE: return !xmlDocGetRootElement(document);
    case XML_COMMENT_NODE:
    case XML_PI_NODE: return true;
    default: return false;
    }
}

// The next node in document order; null behind `root`. Each element that is left is told.
template <class Leave>
xmlNode* Next(xmlNode* node, const xmlNode* root, Leave leave) {
    if (node->type == XML_ELEMENT_NODE && node->children)
        return node->children;
    for (;;) {
        if (node->type == XML_ELEMENT_NODE)
            leave();
        if (node == root)
            return nullptr;
        if (node->next)
            return node->next;
        node = node->parent;
    }
}

class Document : public XmlDocument {
  public:
    Document() {
        if (!Present())
            throw XmlLayerError(XmlLayerError::kNoDocument);
    }

    XmlNodeOwner CreateProcessingInstruction(std::string_view target, std::string_view text) override {
        if (!Present() || !IsElementName(target) || !IsInstructionText(text))
            return nullptr;
        return Owner(
            xmlNewDocPI(m_document.get(), XmlChars(WrittenUtf8(target)), XmlChars(WrittenUtf8(text))));
    }
    XmlNodeOwner CreateComment(std::string_view text) override {
        if (!Present() || !IsCommentText(text))
            return nullptr;
        return Owner(xmlNewDocComment(m_document.get(), XmlChars(WrittenUtf8(text))));
    }
    XmlNodeOwner CreateElement(std::string_view name) override {
        if (!Present() || !IsElementName(name))
            return nullptr;
        return Owner(xmlNewDocNode(m_document.get(), nullptr, XmlChars(WrittenUtf8(name)), nullptr));
    }
    XmlNodeOwner CreateTextNode(std::string_view text) override {
        return Present() ? Owner(xmlNewDocText(m_document.get(), XmlChars(WrittenUtf8(text)))) : nullptr;
    }

    bool AppendChild(XmlNode& child) override {
        auto& node = static_cast<Node&>(child);
        return m_document && IsTaken(m_document.get(), node.Get()) &&
               node.AppendTo(reinterpret_cast<xmlNode*>(m_document.get()));
    }
    bool AppendChild(XmlNode& parent, XmlNode& child) override {
        xmlNode* element = static_cast<Node&>(parent).Get();
        return element->type == XML_ELEMENT_NODE && static_cast<Node&>(child).AppendTo(element);
    }

    XmlNodeOwner DocumentElement() override {
        xmlNode* root = Root();
        return root ? std::make_unique<Node>(root) : nullptr;
    }

    std::optional<XmlElements> Elements() override {
        XmlElements elements;
        std::string name;
        std::string text;
        xmlNode* root = Root();
        for (xmlNode* node = root; node; node = Next(node, root, [&] { elements.Close(); })) {
            if (node->type == XML_ELEMENT_NODE) {
                name.clear();
                AppendCp932(name, QualifiedName(*node));
                elements.Open(name);
            } else if (IsText(*node)) {
                text.clear();
                AppendCp932(text, View(node->content));
                elements.AddText(text);
            }
        }
        return elements;
    }

    std::optional<std::vector<std::string>> TextsByTagName(std::string_view name) override {
        std::vector<std::string> texts;
        const std::string wanted = WrittenUtf8(name);
        xmlNode* root = Root();
        for (xmlNode* node = root; node; node = Next(node, root, [] {})) {
            if (node->type != XML_ELEMENT_NODE || QualifiedName(*node) != wanted)
                continue;
            const UniqueText content(xmlNodeGetContent(node));
            AppendCp932(texts.emplace_back(), View(content.get()));
        }
        return texts;
    }

    bool Serialize(std::string& bytes) override {
        const std::unique_ptr<xmlBuffer, BufferFreer> buffer(xmlBufferCreate());
        if (!buffer || !Present())
            return false;
        // The declaration, if there is one, stands in the document as an instruction.
        xmlSaveCtxt* context = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL);
        if (!context)
            return false;
        const bool isSaved = xmlSaveDoc(context, m_document.get()) >= 0;
        if (xmlSaveClose(context) < 0 || !isSaved)
            return false;
        bytes += View(xmlBufferContent(buffer.get()));
        return true;
    }

  protected:
    bool Parse(std::string_view bytes) override {
        constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
        m_document.reset(
            xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, kOptions));
        return m_document != nullptr;
    }
    bool HasDoctype() override { return m_document->intSubset || m_document->extSubset; }
    void Clear() noexcept override { m_document.reset(); }

  private:
    // False if memory is short.
    bool Present() {
        if (!m_document)
            m_document.reset(xmlNewDoc(XmlChars("1.0")));
        return m_document != nullptr;
    }
    xmlNode* Root() const { return m_document ? xmlDocGetRootElement(m_document.get()) : nullptr; }

    static std::string QualifiedName(const xmlNode& node) {
        std::string name;
        if (node.ns && node.ns->prefix)
            name.append(View(node.ns->prefix)) += ':';
        return name.append(View(node.name));
    }

    UniqueDocument m_document; // none where the document is empty because a load failed
};

} // namespace

// The parser's state is the process's.
class XmlLayer::Apartment {};

XmlLayer::XmlLayer() {
    xmlInitParser();
    // A parser's own switches don't keep it from telling of bytes that it can't convert.
    xmlSetStructuredErrorFunc(nullptr, [](void*, xmlErrorPtr) {});
}

XmlLayer::~XmlLayer() = default;

std::unique_ptr<XmlDocument> XmlLayer::CreateDocument() {
    if (!PrepareCp932())
        throw XmlLayerError(XmlLayerError::kNoDocument);
    return std::make_unique<Document>();
}
