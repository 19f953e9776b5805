// What the operations on a record ask the user's registry.
#include "Common/log.h"
#include "oemps/devmode.h"
#include "oemps/printer_connections.h"
#include "oemps/printer_names.h"

#include <array>

void CDevMode::GetAuthenticatInfo(std::string& printerName, std::string& keyText) {
    ZR_RECORD_LOG_ENTRY();
    const std::string shortName(ShortPrinterName(printerName));
    std::string connection;
    GetSearchRegistryKeyServer(kConnectionsKey, shortName, connection);
    std::string guid;
    GetGuidPrinter(ConnectionKey(connection).c_str(), guid);
    keyText = UserInfoText(shortName + guid);
    printerName.clear();
}

void CDevMode::GetSearchRegistryKeyServer(const char* rootKey, std::string_view shortName,
                                          std::string& subkey) {
    ZR_RECORD_LOG_ENTRY();
    subkey = FindConnection(*KeptConnections(rootKey), shortName);
}

void CDevMode::GetGuidPrinter(const char* key, std::string& guid) {
    ZR_RECORD_LOG_ENTRY();
    std::array<char, 256> text{};
    ::GetGuidPrinter(key, text);
    guid = text.data();
}
