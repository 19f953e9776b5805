// The other side of a data setting key, for tests: it knows the key's layout and nothing of the store.
//
//   dump KEY FILE    writes a line per value: subkey, name, type, data in hexadecimal, with tabs between
//   write KEY FILE   puts such lines into the key
//   apply KEY FILE   the same, and hands the change over
//   delete KEY       removes the key
//   store FILE       uses a store of this process, hands its values out and writes the name of its data
//   setting key
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

bool Dump(HKEY root, const char* file) {
    std::ofstream out(file);
    for (const char* section : {"Current", "Default", "Favorite", "Preview", "Values"}) {
        HKEY key = nullptr;
        if (RegOpenKeyExA(root, section, 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        for (DWORD index = 0;; ++index) {
            std::array<char, 256> name{};
            std::array<BYTE, 4096> data{};
            DWORD nameLength = name.size();
            DWORD size = data.size();
            DWORD type = 0;
            if (RegEnumValueA(key, index, name.data(), &nameLength, nullptr, &type, data.data(), &size) !=
                ERROR_SUCCESS)
                break;
            out << section << '\t' << name.data() << '\t' << type << '\t';
            for (DWORD i = 0; i < size; ++i) {
                std::array<char, 3> hex{};
                std::snprintf(hex.data(), hex.size(), "%02x", data[i]);
                out << hex.data();
            }
            out << '\n';
        }
        RegCloseKey(key);
    }
    return out.good();
}

bool Write(HKEY root, const char* file) {
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        std::istringstream columns(line);
        std::string section;
        std::string name;
        std::string type;
        std::string hex;
        std::getline(columns, section, '\t');
        std::getline(columns, name, '\t');
        std::getline(columns, type, '\t');
        std::getline(columns, hex, '\t');
        std::vector<BYTE> data;
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            data.push_back(static_cast<BYTE>(std::stoi(hex.substr(i, 2), nullptr, 16)));
        if (RegSetKeyValueA(root, section.c_str(), name.c_str(), static_cast<DWORD>(std::stoul(type)),
                            data.data(), static_cast<DWORD>(data.size())) != ERROR_SUCCESS)
            return false;
    }
    return true;
}

bool HandOver(HKEY root) {
    DWORD generation = 0;
    DWORD size = sizeof generation;
    if (RegQueryValueExA(root, "Generation", nullptr, nullptr, reinterpret_cast<BYTE*>(&generation), &size) !=
        ERROR_SUCCESS)
        return false;
    ++generation;
    return RegSetValueExA(root, "Generation", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&generation),
                          sizeof generation) == ERROR_SUCCESS;
}

template <typename Operation>
Operation Find(HMODULE store, const char* name) {
    return reinterpret_cast<Operation>(reinterpret_cast<void*>(GetProcAddress(store, name)));
}

bool UseOwnStore(const char* file) {
    const HMODULE store = LoadLibraryA("DataManager.dll");
    if (!store)
        return false;
    std::array<char, 260> name{};
    Find<void (*)()>(store, "ExportedFunc_InitializeDataManager")();
    Find<void (*)(char*)>(store, "ExportedFunc_CreateDataSettingRegistryKeyName")(name.data());
    Find<void (*)(const char*, int)>(store, "ExportedFunc_CreateDataSettingRegistryKey")(name.data(), 327);
    std::uint32_t before = 99;
    Find<void (*)(int, std::uint32_t*)>(store, "ExportedFunc_GetCurrent")(104, &before);
    Find<void (*)(int, std::uint32_t)>(store, "ExportedFunc_SetCurrent")(104, 77);
    Find<void (*)(char*)>(store, "ExportedFunc_GetRegistryKeyName")(name.data());
    Find<void (*)(const char*)>(store, "ExportedFunc_SetJobName")("of the other process");
    std::ofstream(file) << name.data() << '\n' << before << '\n';
    return true;
}

bool Run(int count, char** arguments) {
    const std::string command = count > 1 ? arguments[1] : "";
    if (command == "store" && count == 3)
        return UseOwnStore(arguments[2]);
    if (command == "delete" && count == 3)
        return RegDeleteTreeA(HKEY_CURRENT_USER, arguments[2]) == ERROR_SUCCESS;
    HKEY root = nullptr;
    if (count != 4 ||
        RegOpenKeyExA(HKEY_CURRENT_USER, arguments[2], 0, KEY_READ | KEY_WRITE, &root) != ERROR_SUCCESS)
        return false;
    if (command == "dump")
        return Dump(root, arguments[3]);
    if (command == "write")
        return Write(root, arguments[3]);
    return command == "apply" && Write(root, arguments[3]) && HandOver(root);
}

} // namespace

int main(int count, char** arguments) {
    return Run(count, arguments) ? 0 : 1;
}
