// What a walk needs of the platform's XML document object, with owners in place of raw results.
#pragma once

#include "Common/unique_com.h"
#include "settings/ansi_text.h"
#include "settings/xml_elements.h"

#include <msxml2.h>

#include <optional>
#include <string>
#include <utility>

namespace msxml {

// What `call` writes to the place that it is given; null if it fails.
template <class Interface, class Call>
UniqueCom<Interface> Received(Call call) {
    Interface* received = nullptr;
    const HRESULT result = call(&received);
    UniqueCom<Interface> owner(received);
    return SUCCEEDED(result) ? std::move(owner) : nullptr;
}

// Null if the object has no such interface.
template <class Interface>
UniqueCom<Interface> Queried(IUnknown& object, const IID& iid) {
    return Received<Interface>(
        [&](Interface** to) { return object.QueryInterface(iid, reinterpret_cast<void**>(to)); });
}

// A VARIANT that is cleared when it goes.
class Variant {
  public:
    Variant() { VariantInit(&m_value); }
    ~Variant() { VariantClear(&m_value); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& Get() { return m_value; }
    VARIANT* operator->() { return &m_value; }

  private:
    VARIANT m_value;
};

// Every element of the document in one walk; nothing if the object fails.
std::optional<XmlElements> Walk(IXMLDOMElement& root);

} // namespace msxml
