// Owners of what the platform hands out.
#pragma once

#include <windows.h>

#include <unknwn.h>
#include <winspool.h>

#include <memory>

struct PrinterCloser {
    using pointer = HANDLE;
    void operator()(HANDLE printer) const { ClosePrinter(printer); }
};
using UniquePrinter = std::unique_ptr<void, PrinterCloser>;

struct HeapDestroyer {
    using pointer = HANDLE;
    void operator()(HANDLE heap) const { HeapDestroy(heap); }
};
using UniqueHeap = std::unique_ptr<void, HeapDestroyer>;

struct FileCloser {
    using pointer = HANDLE;
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using UniqueFile = std::unique_ptr<void, FileCloser>;

struct ModuleFreer {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using UniqueModule = std::unique_ptr<void, ModuleFreer>;

struct ComReleaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using UniqueCom = std::unique_ptr<Interface, ComReleaser>;
