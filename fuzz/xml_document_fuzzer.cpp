// Loads any bytes as a document, and holds the walk against the search by name.
#include "settings/xml_document.h"

#include <cstdint>
#include <cstdlib>
#include <map>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    XmlLayer layer;
    const auto document = layer.CreateDocument();
    if (!document->Load(std::string_view(reinterpret_cast<const char*>(data), size)))
        return 0;
    const auto elements = document->Elements();
    if (!elements)
        std::abort();
    std::map<std::string_view, std::string_view> last;
    for (std::size_t index = 0; index < elements->size(); ++index)
        last[(*elements)[index].name] = (*elements)[index].text;
    for (const auto& [name, text] : last) {
        // A name that the code page lacks can't be searched for.
        if (name.find('?') != std::string_view::npos)
            continue;
        const auto found = document->TextsByTagName(name);
        if (!found || (!found->empty() && found->back() != text))
            std::abort();
    }
    return 0;
}
