#include "companions/common/raw_value.h"

LSTATUS RawValue::Read(HKEY key, const char* valueName, std::optional<RawValue>& value) {
    const std::wstring name = WideName(valueName);
    value.reset();
    DWORD type = REG_NONE;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size);
    if (status == ERROR_FILE_NOT_FOUND)
        return ERROR_SUCCESS;
    if (status != ERROR_SUCCESS)
        return status;
    RawValue found{type, SecretBuffer<BYTE>(size)};
    status = RegQueryValueExW(key, name.c_str(), nullptr, &found.type, found.data.Units().data(), &size);
    // One that has become shorter meanwhile is not what the buffer holds.
    if (status == ERROR_SUCCESS && size != found.data.Units().size())
        return ERROR_MORE_DATA;
    if (status == ERROR_SUCCESS)
        value = std::move(found);
    return status;
}

LSTATUS RawValue::Restore(HKEY key, const char* valueName, const std::optional<RawValue>& value) {
    const std::wstring name = WideName(valueName);
    if (!value)
        return RegDeleteValueW(key, name.c_str());
    const auto bytes = value->data.Units();
    return RegSetValueExW(key, name.c_str(), 0, value->type, bytes.data(), static_cast<DWORD>(bytes.size()));
}
