// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <new>

/// Memory kept in reserve for what must work even when there is no more: a save, a message, a redraw. Nothing is ever
/// written to it, so it uses address space but no physical memory.
class MemoryReserve {
  public:
    MemoryReserve() { refill(); }

    /// While this exists, the reserve is free for use. Afterwards as much of it as possible is taken back.
    class Spent {
      public:
        explicit Spent(MemoryReserve& reserve) : reserve_(reserve) { reserve_.block_.reset(); }
        ~Spent() { reserve_.refill(); }
        Spent(const Spent&) = delete;
        Spent& operator=(const Spent&) = delete;

      private:
        MemoryReserve& reserve_;
    };

  private:
    // Enough for a file dialog, with its thread and what the C library sets aside for a thread, and then for saving a
    // million nodes.
#ifdef WIZARD_SANITIZED  // the sanitizer keeps, and writes each time, a note about every eight bytes
    static constexpr std::size_t most = std::size_t{4} << 20;
#else
    static constexpr std::size_t most = std::size_t{128} << 20;
#endif
    static constexpr std::size_t least = std::size_t{1} << 20;
    // Left to the rest of the program: enough for a window with its pixels.
    static constexpr std::size_t forAWindow = most / 8;

    void refill() {
        for (auto size = most; !block_ && size >= least; size /= 2) {
            block_.reset(new (std::nothrow) std::byte[size]);
            void* window = ::operator new(forAWindow, std::nothrow);
            if (!window) block_.reset();
            ::operator delete(window);
        }
    }

    std::unique_ptr<std::byte[]> block_;
};
