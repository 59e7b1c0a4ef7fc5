// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

/// Memory for arrays that may be large. Where the operating system has huge pages (2 MiB, on Linux), a large block
/// starts on the boundary of one and asks for them. The first access to a page interrupts the program, which takes
/// many microseconds on some virtual machines; a huge page costs one such interruption where 512 small pages cost
/// 512. Blocks below 1 MiB, and all blocks elsewhere, come from `operator new`.
namespace largeBlock {

/// @throws std::bad_alloc
[[nodiscard]] void* allocate(std::size_t bytes);
/// @param bytes as many as were allocated
void free(void* block, std::size_t bytes) noexcept;

/// Frees a block of bytes that a `std::unique_ptr` owns.
struct Free {
    std::size_t bytes = 0;
    void operator()(char* block) const noexcept { free(block, bytes); }
};

/// The allocator of `LargeArray`.
template <class T>
struct Allocator {
    using value_type = T;

    Allocator() = default;
    template <class Other>
    Allocator(const Allocator<Other>&) noexcept {}

    [[nodiscard]] T* allocate(std::size_t count) {
        if (count > static_cast<std::size_t>(-1) / sizeof(T)) throw std::bad_array_new_length();
        return static_cast<T*>(largeBlock::allocate(count * sizeof(T)));
    }
    void deallocate(T* block, std::size_t count) noexcept { largeBlock::free(block, count * sizeof(T)); }

    template <class Other>
    bool operator==(const Allocator<Other>&) const noexcept {
        return true;
    }
};

}  // namespace largeBlock

/// Bytes that nobody has written yet.
using LargeBytes = std::unique_ptr<char[], largeBlock::Free>;

/// @throws std::bad_alloc
[[nodiscard]] inline LargeBytes makeLargeBytes(std::size_t count) {
    return {static_cast<char*>(largeBlock::allocate(count)), {count}};
}

/// A vector with an element for each record, or of the records themselves.
template <class T>
using LargeArray = std::vector<T, largeBlock::Allocator<T>>;
