#include "tests/oemps/guarded_block.h"

#include <windows.h>

#include <cstdlib>

GuardedBlock::GuardedBlock(std::size_t size) {
    SYSTEM_INFO system;
    GetSystemInfo(&system);
    const std::size_t page = system.dwPageSize;
    const std::size_t open = (size + page - 1) / page * page;
    m_pagesSize = open + page;
    m_pages = VirtualAlloc(nullptr, m_pagesSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!m_pages)
        std::abort();
    auto* const first = static_cast<unsigned char*>(m_pages);
    DWORD old;
    if (!VirtualProtect(first + open, page, PAGE_NOACCESS, &old))
        std::abort();
    m_bytes = {first + open - size, size};
}

GuardedBlock::~GuardedBlock() {
    VirtualFree(m_pages, 0, MEM_RELEASE);
}
