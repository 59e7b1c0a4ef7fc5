// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <new>

// Replaces `new` in a whole test program, so that requests for memory can be refused. For one file of a program,
// which defines `allocate`; not with the sanitizers, which make requests of their own.

/// Memory for every `new`. @param caller the code that asks @return null to refuse it
static void* allocate(std::size_t size, const void* caller) noexcept;

void* operator new(std::size_t size) {
    if (void* memory = allocate(size, __builtin_return_address(0))) return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size, __builtin_return_address(0));
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
