#include "settings/msxml.h"

#include <vector>

namespace msxml {

namespace {

using UniqueNode = UniqueCom<IXMLDOMNode>;

class Walker {
  public:
    // False if the object fails.
    bool Visit(IXMLDOMNode& root) {
        if (!Enter(root))
            return false;
        while (!m_path.empty()) {
            UniqueNode& at = m_path.back();
            if (!at) {
                m_path.pop_back();
                m_elements.Close();
                continue;
            }
            // The stack's entry moves on to the next sibling before the node's own children are entered.
            const UniqueNode node = std::move(at);
            if (!Following(&IXMLDOMNode::get_nextSibling, *node, at))
                return false;
            if (!VisitOne(*node))
                return false;
        }
        return true;
    }

    XmlElements Take() { return std::move(m_elements); }

  private:
    bool VisitOne(IXMLDOMNode& node) {
        DOMNodeType type{};
        if (FAILED(node.get_nodeType(&type)))
            return false;
        switch (type) {
        case NODE_ELEMENT: return Enter(node);
        case NODE_TEXT:
        case NODE_CDATA_SECTION: return AddText(node);
        default: return true;
        }
    }

    bool Enter(IXMLDOMNode& element) {
        BSTR received = nullptr;
        const HRESULT result = element.get_nodeName(&received);
        const UniqueBStr name(received);
        if (FAILED(result))
            return false;
        m_scratch.clear();
        AppendAnsi(m_scratch, name.get(), SysStringLen(name.get()));
        m_elements.Open(m_scratch);
        m_path.emplace_back();
        return Following(&IXMLDOMNode::get_firstChild, element, m_path.back());
    }

    bool AddText(IXMLDOMNode& node) {
        Variant value;
        if (FAILED(node.get_nodeValue(&value.Get())) || value->vt != VT_BSTR)
            return false;
        m_scratch.clear();
        AppendAnsi(m_scratch, value->bstrVal, SysStringLen(value->bstrVal));
        m_elements.AddText(m_scratch);
        return true;
    }

    // Null behind the last node, which the object reports as a success.
    static bool Following(HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*get)(IXMLDOMNode**), IXMLDOMNode& node,
                          UniqueNode& following) {
        IXMLDOMNode* received = nullptr;
        const HRESULT result = (node.*get)(&received);
        following.reset(received);
        return SUCCEEDED(result);
    }

    XmlElements m_elements;
    std::vector<UniqueNode> m_path; // the next node at each level below the root
    std::string m_scratch;
};

} // namespace

std::optional<XmlElements> Walk(IXMLDOMElement& root) {
    Walker walker;
    if (!walker.Visit(root))
        return std::nullopt;
    return walker.Take();
}

} // namespace msxml
