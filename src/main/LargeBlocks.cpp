// Large blocks of memory in huge pages: a page fault for each 4 KiB of a long list would take as long as parsing it.
#include <sys/mman.h>

#include <cstddef>
#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
    constexpr std::size_t kHugePage = 2'097'152;
    const std::size_t inHugePages = size / kHugePage * kHugePage;
    void* block = nullptr;
    if (inHugePages == 0) {
        block = std::malloc(size);
    } else if (::posix_memalign(&block, kHugePage, size) != 0) {
        block = nullptr;
    }
    if (block == nullptr) {
        throw std::bad_alloc();
    }
#ifdef MADV_HUGEPAGE
    // Only advice: without huge pages the block is in ordinary ones.
    if (inHugePages > 0) {
        ::madvise(block, inHugePages, MADV_HUGEPAGE);
    }
#endif
    return block;
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
