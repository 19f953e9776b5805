// Owning types for the platform's handles: each closes what it holds when it goes.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <winspool.h>

#include <utility>

// `Closer` names the handle's type as Handle and closes one in Close(). Null stands for "none".
template <class Closer>
class UniqueHandleOf {
  public:
    using Handle = typename Closer::Handle;

    UniqueHandleOf() = default;
    explicit UniqueHandleOf(Handle handle) : m_handle(handle) {}
    UniqueHandleOf(UniqueHandleOf&& other) noexcept : m_handle(other.Release()) {}
    UniqueHandleOf& operator=(UniqueHandleOf&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~UniqueHandleOf() { Reset(); }

    explicit operator bool() const { return m_handle != nullptr; }
    Handle Get() const { return m_handle; }

    // Gives the handle away; this object no longer closes it.
    [[nodiscard]] Handle Release() { return std::exchange(m_handle, nullptr); }

    void Reset(Handle handle = nullptr) {
        if (Handle old = std::exchange(m_handle, handle))
            Closer::Close(old);
    }

    // The place to which an opening function writes its handle; what was held is closed first.
    Handle* Receive() {
        Reset();
        return &m_handle;
    }

  private:
    Handle m_handle = nullptr;
};

namespace handle_closer {

struct Kernel {
    using Handle = HANDLE;
    static void Close(HANDLE handle) { CloseHandle(handle); }
};
struct FileSearch {
    using Handle = HANDLE;
    static void Close(HANDLE search) { FindClose(search); }
};
struct Printer {
    using Handle = HANDLE;
    static void Close(HANDLE handle) { ClosePrinter(handle); }
};
struct Heap {
    using Handle = HANDLE;
    static void Close(HANDLE heap) { HeapDestroy(heap); }
};
struct RegistryKey {
    using Handle = HKEY;
    static void Close(HKEY key) { RegCloseKey(key); }
};
struct Module {
    using Handle = HMODULE;
    static void Close(HMODULE module) { FreeLibrary(module); }
};
struct Bitmap {
    using Handle = HBITMAP;
    static void Close(HBITMAP bitmap) { DeleteObject(bitmap); }
};
struct Brush {
    using Handle = HBRUSH;
    static void Close(HBRUSH brush) { DeleteObject(brush); }
};
struct MemoryContext {
    using Handle = HDC;
    static void Close(HDC context) { DeleteDC(context); }
};
struct ImageList {
    using Handle = HIMAGELIST;
    static void Close(HIMAGELIST list) { ImageList_Destroy(list); }
};

} // namespace handle_closer

// For kernel objects whose opening function reports failure as null.
using UniqueHandle = UniqueHandleOf<handle_closer::Kernel>;
// What CreateFile gave, none if that failed.
inline UniqueHandle OpenedFile(HANDLE file) {
    return UniqueHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}
using UniqueFileSearch = UniqueHandleOf<handle_closer::FileSearch>;
using UniqueHeap = UniqueHandleOf<handle_closer::Heap>;
using UniquePrinter = UniqueHandleOf<handle_closer::Printer>;
using UniqueRegistryKey = UniqueHandleOf<handle_closer::RegistryKey>;
using UniqueModule = UniqueHandleOf<handle_closer::Module>;
using UniqueBitmap = UniqueHandleOf<handle_closer::Bitmap>;
using UniqueBrush = UniqueHandleOf<handle_closer::Brush>;
// A device context that was created, not one of a window.
using UniqueMemoryContext = UniqueHandleOf<handle_closer::MemoryContext>;
using UniqueImageList = UniqueHandleOf<handle_closer::ImageList>;
