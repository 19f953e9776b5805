#include "tests/oemps/guarded_block.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

GuardedBlock::GuardedBlock(std::size_t size) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t open = (size + page - 1) / page * page;
    m_pagesSize = open + page;
    m_pages = mmap(nullptr, m_pagesSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (m_pages == MAP_FAILED)
        std::abort();
    auto* const first = static_cast<unsigned char*>(m_pages);
    if (mprotect(first + open, page, PROT_NONE) != 0)
        std::abort();
    m_bytes = {first + open - size, size};
}

GuardedBlock::~GuardedBlock() {
    munmap(m_pages, m_pagesSize);
}
