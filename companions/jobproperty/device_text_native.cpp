#include "companions/jobproperty/device_text.h"

#include "settings/cp932.h"

#include <stdexcept>

namespace jobproperty {

std::string DeviceText(std::string_view utf8) {
    if (!PrepareCp932())
        throw std::runtime_error("the platform has no code page 932");
    std::string text;
    AppendCp932(text, utf8);
    return text;
}

} // namespace jobproperty
