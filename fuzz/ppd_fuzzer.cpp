// Any bytes are read as a description or refused with a message, and what was read holds together: invariants
// 7 to 9 of docs/security.md.
#include "host/ppd.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto result = ppd::Parse({reinterpret_cast<const char*>(data), size});
    if (auto* error = std::get_if<ppd::PpdError>(&result)) {
        const auto isAscii = [](unsigned char c) { return c >= 0x20 && c < 0x7F; };
        if (error->message.empty() || error->line == 0 || !std::ranges::all_of(error->message, isAscii))
            std::abort();
        return 0;
    }
    const auto& file = std::get<ppd::PpdFile>(result);
    for (const ppd::Feature& feature : file.features)
        if (feature.defaultOption >= feature.options.size())
            std::abort();
    auto pageSize = file.FindFeature("PageSize");
    if (!pageSize || file.papers.size() != file.features[*pageSize].options.size())
        std::abort();
    return 0;
}
