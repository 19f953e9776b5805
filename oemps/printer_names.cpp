#include "oemps/printer_names.h"

#include "Common/text.h"
#include "datamanager/key_names.h"

#include <algorithm>

std::string_view ShortPrinterName(std::string_view printerName) {
    const std::size_t backslash = FindLastCharacter(printerName, '\\');
    if (backslash == std::string_view::npos || backslash == 0)
        return printerName;
    return printerName.substr(backslash + 1);
}

std::string_view FindConnection(std::span<const std::string> connections, std::string_view shortName) {
    // By bytes, so that a name which is the second half of a double-byte character is found in that as well.
    const auto found = std::ranges::find_if(connections, [&](std::string_view connection) {
        return connection.find(shortName) != connection.npos;
    });
    return found == connections.end() ? std::string_view{} : std::string_view{*found};
}

std::string UserInfoText(std::string_view printerKeyName) {
    return std::string(printerKeyName) + "\\UserInfo";
}

std::string UserInfoKey(std::string_view userInfoText) {
    return std::string(kAuthenticationParent).append("\\").append(userInfoText);
}
