// Large blocks of memory in huge pages: a page fault for each 4 KiB of a long list would take as long as parsing it.
#include <sys/mman.h>

#include <cstddef>
#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
    constexpr std::size_t kHugePage = 2'097'152;
    const std::size_t inHugePages = size / kHugePage * kHugePage;
    void* const block = inHugePages == 0 ? std::malloc(size) : std::aligned_alloc(kHugePage, size);
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
