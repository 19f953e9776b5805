#include "host/driverhost_store.h"

#include "host/driverhost_text.h"
#include "host/module_function.h"

#include <array>
#include <vector>

#include <windows.h>

namespace driverhost {
namespace {

enum class Type { U32, I32, U64, Text, SetOnly };

struct Value {
    const char* name;
    Type type;
    std::size_t width; // of a text, in bytes
};

constexpr std::array kValues{
#define ZR_NAMED_VALUE(name, type) Value{#name, Type::type, 0},
#define ZR_TEXT_VALUE(name, width) Value{#name, Type::Text, width},
#define ZR_U32_SET_ONLY(name) Value{#name, Type::SetOnly, 0},
#define ZR_TEXT_SET_ONLY(name, width) Value{#name, Type::SetOnly, width},
#include "session/named_values.def"
};

const Value* Find(const std::string& name) {
    for (const Value& value : kValues)
        if (name == value.name)
            return &value;
    return nullptr;
}

// The exported operation with this name; null, with the reason in `error`, if it can't be had.
template <typename Function>
Function Operation(const std::string& name, std::string& error) {
    const HMODULE module = GetModuleHandleW(L"DataManager.dll");
    if (!module) {
        error = "DataManager.dll is not loaded";
        return nullptr;
    }
    const auto function = FunctionOf<Function>(module, name.c_str());
    if (!function)
        error = "DataManager.dll has no " + name;
    return function;
}

template <typename Number>
StoreAnswer NumberValue(const std::string& operation) {
    StoreAnswer answer;
    Number number = 0;
    if (const auto get = Operation<void (*)(Number*)>(operation, answer.error)) {
        get(&number);
        answer.value = std::to_string(number);
    }
    return answer;
}

StoreAnswer TextValue(const std::string& operation, std::size_t width) {
    StoreAnswer answer;
    std::vector<char> text(width + 1);
    if (const auto get = Operation<void (*)(char*)>(operation, answer.error)) {
        get(text.data());
        answer.value = Utf8OfAnsi(text.data());
    }
    return answer;
}

const char* NameOf(script::Bank bank) {
    switch (bank) {
    case script::Bank::Current: return "Current";
    case script::Bank::Default: return "Default";
    case script::Bank::Favorite: return "Favorite";
    case script::Bank::Preview: break;
    }
    return "Preview";
}

} // namespace

StoreAnswer BankValue(script::Bank bank, int keyword) {
    StoreAnswer answer;
    std::uint32_t number = 0;
    const std::string operation = std::string("ExportedFunc_Get") + NameOf(bank);
    if (const auto get = Operation<void (*)(int, std::uint32_t*)>(operation, answer.error)) {
        get(keyword, &number);
        answer.value = std::to_string(number);
    }
    return answer;
}

StoreAnswer NamedValue(const std::string& name) {
    const Value* value = Find(name);
    if (!value)
        return {"", "the store has no value called " + name};
    const std::string operation = "ExportedFunc_Get" + name;
    switch (value->type) {
    case Type::U32: return NumberValue<std::uint32_t>(operation);
    case Type::I32: return NumberValue<std::int32_t>(operation);
    case Type::U64: return NumberValue<std::uint64_t>(operation);
    case Type::Text: return TextValue(operation, value->width);
    case Type::SetOnly: break;
    }
    return {"", "the value " + name + " can't be read"};
}

std::string SetBankValue(script::Bank bank, int keyword, std::uint32_t number) {
    std::string error;
    const std::string operation = std::string("ExportedFunc_Set") + NameOf(bank);
    if (const auto set = Operation<void (*)(int, std::uint32_t)>(operation, error))
        set(keyword, number);
    return error;
}

std::string SetNamedValue(const std::string& name, std::uint32_t number) {
    const Value* value = Find(name);
    if (!value || value->type == Type::Text)
        return "the store has no number called " + name;
    std::string error;
    const std::string operation = "ExportedFunc_Set" + name;
    if (value->type == Type::U64) {
        if (const auto set = Operation<void (*)(std::uint64_t)>(operation, error))
            set(number);
    } else if (const auto set = Operation<void (*)(std::uint32_t)>(operation, error)) {
        set(number);
    }
    return error;
}

std::string SetNamedText(const std::string& name, const std::string& text) {
    const Value* value = Find(name);
    if (!value || value->type != Type::Text)
        return "the store has no text called " + name;
    std::string error;
    if (const auto set = Operation<void (*)(const char*)>("ExportedFunc_Set" + name, error))
        set(AnsiOfUtf8(text).c_str());
    return error;
}

} // namespace driverhost
