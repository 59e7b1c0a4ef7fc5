// SPDX-License-Identifier: MIT
// Touches a gigabyte of memory, so that a later run does not pay for memory that the machine has never used before.
// It uses huge pages if there are any; these later also serve small pages. Then prints how many microseconds the
// first touch of a small page takes.
#include <sys/mman.h>

#include <chrono>
#include <cstdio>

#include "model/LargeArray.h"

int main() {
    constexpr std::size_t megabyte = std::size_t{1} << 20;
    constexpr std::size_t measured = 64 * megabyte;
    constexpr std::size_t page = 4096;
    {
        const LargeArray<char> touched(1024 * megabyte, 1);
        if (touched.back() != 1) return 1;
    }
    void* const block = mmap(nullptr, measured, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) return 1;
#ifdef MADV_NOHUGEPAGE
    madvise(block, measured, MADV_NOHUGEPAGE);
#endif
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t at = 0; at < measured; at += page) static_cast<volatile char*>(block)[at] = 1;
    const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - start;
    std::printf("%.2f\n", took.count() / (measured / page));
}
