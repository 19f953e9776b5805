// Three hundred sheets in one process, each with its first page shown and painted and every tenth with a
// dialog, leave nothing behind: no window, no GDI object, no kernel handle and no heap beyond what the first
// ones keep for the process.
#include "tests/sheet/device_data.h"
#include "tests/support/handle_count.h"
#include "tests/support/plugin_sheet.h"

#include <gtest/gtest.h>

#include <winternl.h>

#include <cstdint>
#include <vector>

namespace {

constexpr int kSheets = 300;
// What the first sheets load and keep for the process is there after these.
constexpr int kFirstSheets = 20;

struct Holdings {
    int windows = 0;
    int gdiObjects = 0;
    int handles = 0;
    std::int64_t heapBytes = 0;
};

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK CountWindowAndChildren(HWND window, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    EnumChildWindows(window, CountWindow, count);
    return TRUE;
}

int CountWindows() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindowAndChildren, reinterpret_cast<LPARAM>(&count));
    return count;
}

const unsigned char* ProcessBlock() {
    PROCESS_BASIC_INFORMATION process{};
    NtFunction<LONG(NTAPI*)(HANDLE, int, void*, ULONG, ULONG*)>("NtQueryInformationProcess")(
        GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process, nullptr);
    return reinterpret_cast<const unsigned char*>(process.PebBaseAddress);
}

// GetGuiResources is a stub under Wine; the process's table of GDI objects is exact.
int CountGdiObjects() {
    constexpr std::size_t kTable = 0xF8;
    constexpr std::size_t kEntry = 24;
    constexpr std::size_t kType = 14;
    constexpr std::size_t kEntries = 0x10000;
    const unsigned char* table = *reinterpret_cast<unsigned char* const*>(ProcessBlock() + kTable);
    int count = 0;
    for (std::size_t i = 0; i < kEntries; ++i)
        count += table[i * kEntry + kType] != 0 ? 1 : 0;
    return count;
}

std::int64_t HeapBytes() {
    std::vector<HANDLE> heaps(64);
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    std::int64_t bytes = 0;
    for (HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (HeapWalk(heap, &entry))
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) ? static_cast<std::int64_t>(entry.cbData) : 0;
        HeapUnlock(heap);
    }
    return bytes;
}

Holdings Held() {
    return {CountWindows(), CountGdiObjects(), CountHandles(), HeapBytes()};
}

void CALLBACK CloseDialog(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND dialog = GetActiveWindow();
    if (!dialog || !GetDlgItem(dialog, 1286))
        return;
    KillTimer(nullptr, timer);
    PaintAll(dialog);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
}

void OpenMediaDialog(HWND page) {
    SetTimer(nullptr, 0, USER_TIMER_MINIMUM, CloseDialog);
    SendMessageA(GetDlgItem(page, 1280), BM_CLICK, 0, 0);
}

void Work(HWND sheet, bool withDialog) {
    PaintAll(sheet);
    const HWND page = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    ASSERT_NE(GetDlgItem(page, 1285), nullptr) << "the first page is another one";
    if (withDialog)
        OpenMediaDialog(page);
}

TEST(SheetLeak, ThreeHundredSheetsLeaveNothingBehind) {
    FitDevice();
    PlugInSheet sheet;
    ASSERT_EQ(sheet.Trouble(), "");
    Holdings before;
    for (int i = 0; i < kSheets; ++i) {
        if (i == kFirstSheets)
            before = Held();
        sheet.Prepare();
        sheet.Show([i](HWND window) { Work(window, i % 10 == 0); });
    }
    const Holdings after = Held();
    UnfitDevice();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.handles, before.handles);
    constexpr std::int64_t kBytesASheet = 64;
    EXPECT_LE(after.heapBytes - before.heapBytes, kBytesASheet * (kSheets - kFirstSheets));
    RecordProperty("heapGrowth", std::to_string(after.heapBytes - before.heapBytes));
    std::printf("%d windows, %d GDI objects, %d handles, %lld bytes; growth of the heap %lld bytes\n",
                after.windows, after.gdiObjects, after.handles, static_cast<long long>(after.heapBytes),
                static_cast<long long>(after.heapBytes - before.heapBytes));
}

} // namespace
