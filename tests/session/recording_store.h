// A value store that keeps nothing but the calls made to it.
#pragma once

#include <string>
#include <vector>

namespace recording_store {

struct Call {
    std::string operation; // "SetProfile" and so on
    std::string argument;  // as text; "" for a getter

    bool operator==(const Call&) const = default;
};

std::vector<Call>& Calls();

} // namespace recording_store
