#include "settings/msxml.h"
#include "settings/xml_document.h"
#include "settings/xml_safety.h"

#include <initguid.h>

#include <algorithm>
#include <array>

namespace {

using msxml::Queried;
using msxml::Received;
using msxml::Variant;

DEFINE_GUID(kDocumentClass, 0xf6d90f11, 0x9c73, 0x11d3, 0xb3, 0x2e, 0x00, 0xc0, 0x4f, 0x99, 0x0b, 0xb4);
DEFINE_GUID(kDocumentInterface, 0x2933bf81, 0x7b36, 0x11d2, 0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60);
DEFINE_GUID(kSecondDocumentInterface, 0x2933bf95, 0x7b36, 0x11d2, 0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e,
            0x60);

class Node : public XmlNode {
  public:
    explicit Node(UniqueCom<IXMLDOMNode> node) : m_node(std::move(node)) {}
    IXMLDOMNode* Get() const { return m_node.get(); }

  private:
    UniqueCom<IXMLDOMNode> m_node;
};

template <class Interface>
XmlNodeOwner Owner(UniqueCom<Interface> made) {
    return made ? std::make_unique<Node>(UniqueCom<IXMLDOMNode>(made.release())) : nullptr;
}

bool Append(IXMLDOMNode& parent, XmlNode& child) {
    return Received<IXMLDOMNode>([&](IXMLDOMNode** added) {
               return parent.appendChild(static_cast<Node&>(child).Get(), added);
           }) != nullptr;
}

// Switches that keep the parser from fetching and expanding. Not every version of the object has them all.
void ProhibitDtd(IXMLDOMDocument& document) {
    const auto second = Queried<IXMLDOMDocument2>(document, kSecondDocumentInterface);
    const UniqueBStr property = WrittenBStr("ProhibitDTD");
    if (!second || !property)
        return;
    Variant yes;
    yes->vt = VT_BOOL;
    yes->boolVal = VARIANT_TRUE;
    second->setProperty(property.get(), yes.Get());
}

void SetUp(IXMLDOMDocument& document) {
    document.put_async(VARIANT_FALSE);
    document.put_validateOnParse(VARIANT_FALSE);
    document.put_resolveExternals(VARIANT_FALSE);
    // Spaces at the ends of a text are the user's.
    document.put_preserveWhiteSpace(VARIANT_TRUE);
    ProhibitDtd(document);
}

// Null if the object can't be made.
UniqueCom<IXMLDOMDocument> NewDocument() {
    const auto object = Received<IUnknown>([](IUnknown** to) {
        return CoCreateInstance(kDocumentClass, nullptr, CLSCTX_ALL, IID_IUnknown,
                                reinterpret_cast<void**>(to));
    });
    if (!object || FAILED(OleRun(object.get())))
        return nullptr;
    auto document = Queried<IXMLDOMDocument>(*object, kDocumentInterface);
    if (document)
        SetUp(*document);
    return document;
}

// False if memory is short.
bool MakeByteArray(std::string_view bytes, Variant& array) {
    SAFEARRAY* made = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (!made)
        return false;
    array->vt = VT_ARRAY | VT_UI1;
    array->parray = made;
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(made, &data)))
        return false;
    std::ranges::copy(bytes, static_cast<char*>(data));
    SafeArrayUnaccessData(made);
    return true;
}

bool ReadFromStart(IStream& stream, std::string& bytes) {
    if (FAILED(stream.Seek({}, STREAM_SEEK_SET, nullptr)))
        return false;
    std::array<char, 16 * 1024> buffer;
    for (;;) {
        ULONG read = 0;
        if (FAILED(stream.Read(buffer.data(), static_cast<ULONG>(buffer.size()), &read)))
            return false;
        if (read == 0)
            return true;
        bytes.append(buffer.data(), read);
    }
}

class Document : public XmlDocument {
  public:
    Document() {
        if (!Present())
            throw XmlLayerError(XmlLayerError::kNoDocument);
    }

    XmlNodeOwner CreateProcessingInstruction(std::string_view target, std::string_view text) override {
        const UniqueBStr wideTarget = WrittenBStr(target);
        const UniqueBStr wideText = WrittenBStr(text);
        if (!wideTarget || !wideText || !IsElementName(target) || !IsInstructionText(text) || !Present())
            return nullptr;
        return Owner(Received<IXMLDOMProcessingInstruction>([&](IXMLDOMProcessingInstruction** to) {
            return m_document->createProcessingInstruction(wideTarget.get(), wideText.get(), to);
        }));
    }
    XmlNodeOwner CreateComment(std::string_view text) override {
        const UniqueBStr wide = WrittenBStr(text);
        if (!wide || !IsCommentText(text) || !Present())
            return nullptr;
        return Owner(Received<IXMLDOMComment>(
            [&](IXMLDOMComment** to) { return m_document->createComment(wide.get(), to); }));
    }
    XmlNodeOwner CreateElement(std::string_view name) override {
        const UniqueBStr wide = WrittenBStr(name);
        if (!wide || !IsElementName(name) || !Present())
            return nullptr;
        return Owner(Received<IXMLDOMElement>(
            [&](IXMLDOMElement** to) { return m_document->createElement(wide.get(), to); }));
    }
    XmlNodeOwner CreateTextNode(std::string_view text) override {
        const UniqueBStr wide = WrittenBStr(text);
        if (!wide || !Present())
            return nullptr;
        return Owner(Received<IXMLDOMText>(
            [&](IXMLDOMText** to) { return m_document->createTextNode(wide.get(), to); }));
    }

    bool AppendChild(XmlNode& child) override {
        return m_document && IsTaken(child) && Append(*m_document, child);
    }
    bool AppendChild(XmlNode& parent, XmlNode& child) override {
        return Append(*static_cast<Node&>(parent).Get(), child);
    }

    XmlNodeOwner DocumentElement() override { return Owner(Root()); }

    std::optional<XmlElements> Elements() override {
        const auto root = Root();
        return root ? msxml::Walk(*root) : XmlElements();
    }

    std::optional<std::vector<std::string>> TextsByTagName(std::string_view name) override {
        if (!m_document)
            return std::vector<std::string>();
        const UniqueBStr wide = WrittenBStr(name);
        const auto list = Received<IXMLDOMNodeList>(
            [&](IXMLDOMNodeList** to) { return m_document->getElementsByTagName(wide.get(), to); });
        LONG length = 0;
        if (!list || FAILED(list->get_length(&length)))
            return std::nullopt;
        std::vector<std::string> texts;
        for (LONG index = 0; index < length; ++index) {
            const auto item =
                Received<IXMLDOMNode>([&](IXMLDOMNode** to) { return list->get_item(index, to); });
            BSTR received = nullptr;
            if (!item || FAILED(item->get_text(&received)))
                return std::nullopt;
            const UniqueBStr text(received);
            AppendAnsi(texts.emplace_back(), text.get(), SysStringLen(text.get()));
        }
        return texts;
    }

    bool Serialize(std::string& bytes) override {
        const auto stream =
            Received<IStream>([](IStream** to) { return CreateStreamOnHGlobal(nullptr, TRUE, to); });
        if (!stream || !Present())
            return false;
        Variant target;
        target->vt = VT_UNKNOWN;
        target->punkVal = stream.get();
        stream->AddRef();
        return SUCCEEDED(m_document->save(target.Get())) && ReadFromStart(*stream, bytes);
    }

  protected:
    bool Parse(std::string_view bytes) override {
        Variant source;
        // The result is a success for what is no XML too.
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        return MakeByteArray(bytes, source) && Present() &&
               m_document->load(source.Get(), &isLoaded) == S_OK && isLoaded != VARIANT_FALSE;
    }
    bool HasDoctype() override {
        IXMLDOMDocumentType* received = nullptr;
        const HRESULT result = m_document->get_doctype(&received);
        const UniqueCom<IXMLDOMDocumentType> doctype(received);
        return FAILED(result) || doctype;
    }
    void Clear() noexcept override { m_document.reset(); }

  private:
    bool Present() {
        if (!m_document)
            m_document = NewDocument();
        return m_document != nullptr;
    }

    // A document takes one element, comments and instructions; not every version of the object sees to that.
    bool IsTaken(const XmlNode& child) const {
        DOMNodeType type{};
        if (FAILED(static_cast<const Node&>(child).Get()->get_nodeType(&type)))
            return false;
        return type == NODE_ELEMENT ? !Root() : type == NODE_COMMENT || type == NODE_PROCESSING_INSTRUCTION;
    }

    UniqueCom<IXMLDOMElement> Root() const {
        if (!m_document)
            return nullptr;
        return Received<IXMLDOMElement>(
            [&](IXMLDOMElement** to) { return m_document->get_documentElement(to); });
    }

    UniqueCom<IXMLDOMDocument> m_document; // none where the document is empty because a load failed
};

} // namespace

class XmlLayer::Apartment {
  public:
    // A thread that runs another kind of apartment already can use the object all the same.
    Apartment() : m_isEntered(SUCCEEDED(CoInitialize(nullptr))) {}
    ~Apartment() {
        CoFreeUnusedLibraries();
        if (m_isEntered)
            CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

  private:
    bool m_isEntered;
};

XmlLayer::XmlLayer() : m_apartment(std::make_unique<Apartment>()) {}

XmlLayer::~XmlLayer() = default;

std::unique_ptr<XmlDocument> XmlLayer::CreateDocument() {
    return std::make_unique<Document>();
}
