// A look into the plug-in's value store, in the process that has the sheet. The store's module is found as it
// was loaded by the plug-in; nothing here loads it.
#pragma once

#include "host/script.h"

#include <cstdint>
#include <string>

namespace driverhost {

// The text or number that is asked for, or why there is none.
struct StoreAnswer {
    std::string value; // UTF-8
    std::string error;
};

StoreAnswer BankValue(script::Bank bank, int keyword);
StoreAnswer NamedValue(const std::string& name);

// Each returns "" or why the value was not written.
std::string SetBankValue(script::Bank bank, int keyword, std::uint32_t number);
std::string SetNamedValue(const std::string& name, std::uint32_t number);
std::string SetNamedText(const std::string& name, const std::string& text);

} // namespace driverhost
