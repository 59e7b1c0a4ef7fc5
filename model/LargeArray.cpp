// SPDX-License-Identifier: MIT
#include "model/LargeArray.h"

#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#endif

// The sanitizers cannot check memory that does not come from `operator new`.
#if defined(MADV_HUGEPAGE) && !defined(WIZARD_SANITIZED)

namespace {

constexpr std::size_t hugePage = std::size_t{2} << 20;

constexpr std::size_t most = static_cast<std::size_t>(-1) / 2;

constexpr bool isLarge(std::size_t bytes) {
    return bytes >= hugePage / 2;
}

constexpr std::uintptr_t roundedUp(std::uintptr_t bytes) {
    return (bytes + hugePage - 1) / hugePage * hugePage;
}

}  // namespace

void* largeBlock::allocate(std::size_t bytes) {
    if (!isLarge(bytes)) return ::operator new(bytes);
    if (bytes > most) throw std::bad_alloc();
    // One huge page more than needed: what comes before the first boundary is given back, and so is the rest.
    const auto size = roundedUp(bytes);
    void* const got = mmap(nullptr, size + hugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (got == MAP_FAILED) throw std::bad_alloc();
    const auto before = roundedUp(reinterpret_cast<std::uintptr_t>(got)) - reinterpret_cast<std::uintptr_t>(got);
    char* const block = static_cast<char*>(got) + before;
    if (before != 0) munmap(got, before);
    munmap(block + size, hugePage - before);
    madvise(block, size, MADV_HUGEPAGE);  // only a hint
    return block;
}

void largeBlock::free(void* block, std::size_t bytes) noexcept {
    if (isLarge(bytes))
        munmap(block, roundedUp(bytes));
    else
        ::operator delete(block);
}

#else

void* largeBlock::allocate(std::size_t bytes) {
    return ::operator new(bytes);
}

void largeBlock::free(void* block, std::size_t) noexcept {
    ::operator delete(block);
}

#endif
