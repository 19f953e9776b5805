#include "oemps/printer_names.h"

#include "Common/text.h"

#include <algorithm>

std::string_view ShortPrinterName(std::string_view printerName) {
    const std::size_t backslash = FindLastCharacter(printerName, '\\');
    if (backslash == std::string_view::npos || backslash == 0)
        return printerName;
    return printerName.substr(backslash + 1);
}

std::string_view FindConnection(std::span<const std::string> connections, std::string_view shortName) {
    const auto found = std::ranges::find_if(connections, [&](std::string_view connection) {
        return connection.find(shortName) != connection.npos;
    });
    return found == connections.end() ? std::string_view{} : std::string_view{*found};
}

std::string UserInfoKey(std::string_view shortName, std::string_view guidPrinter) {
    std::string key = "Software\\Zephra\\ZR Print Driver Data\\";
    key += shortName;
    key += guidPrinter;
    key += "\\UserInfo";
    return key;
}
