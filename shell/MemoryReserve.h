// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <new>

/// Room that is kept for what must work when there is no more memory: a save, a message, a redraw. Nothing is ever
/// written into it, so it takes addresses and no memory of the machine.
class MemoryReserve {
  public:
    MemoryReserve() { refill(); }

    /// While it exists, the reserve is there to be used. After that as much as can be had is kept again.
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
    // What a file dialog takes, with a thread and what the C library sets aside for one, and what saving a million
    // nodes takes after that.
    static constexpr std::size_t most = std::size_t{128} << 20;
    static constexpr std::size_t least = std::size_t{1} << 20;
    // What is left to the rest of the program: a window, with its pixels.
    static constexpr std::size_t forAWindow = std::size_t{16} << 20;

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
