// The module itself: its handle and the counts that decide whether it may be unloaded.
#pragma once

#include <windows.h>

// The module's handle, kept on process attach and by nothing else.
HINSTANCE ModuleHandle();
void SetModuleHandle(HINSTANCE instance);

// IClassFactory::LockServer: the only thing that changes the lock count.
void LockModule(bool lock);

// True if neither an object nor a lock is counted.
bool CanUnloadModule();
