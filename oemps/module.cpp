#include "oemps/module.h"

#include <atomic>

namespace {

HINSTANCE moduleHandle = nullptr;

// Nothing changes the object count: a plug-in object alone does not keep the module loaded. The driver holds
// the module itself for as long as it uses an object.
std::atomic<LONG> objectCount{0};
std::atomic<LONG> lockCount{0};

} // namespace

HINSTANCE ModuleHandle() {
    return moduleHandle;
}

void SetModuleHandle(HINSTANCE instance) {
    moduleHandle = instance;
}

void LockModule(bool lock) {
    if (lock)
        ++lockCount;
    else
        --lockCount;
}

bool CanUnloadModule() {
    return objectCount == 0 && lockCount == 0;
}
