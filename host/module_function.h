// The functions of a loaded module.
#pragma once

#include <windows.h>

// The exported function with this name, of the given pointer type; null if the module has none.
template <typename Pointer>
Pointer FunctionOf(HMODULE module, const char* name) {
    return reinterpret_cast<Pointer>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}
