// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

// What the fuzz targets share.

/// Ends the run with a finding if `holds` is false.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// A file that exists only in memory.
class MemoryFile {
  public:
    explicit MemoryFile(std::string_view bytes) : descriptor_(memfd_create("scheme", 0)) {
        require(write(descriptor_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "memory file");
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    [[nodiscard]] std::filesystem::path path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  private:
    int descriptor_;
};

/// This process's folder for saved files; in memory if the operating system offers a place there.
class OutputFolder {
  public:
    OutputFolder() {
        const std::filesystem::path memory = "/dev/shm";
        const auto parent = std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
        path_ = parent / ("wizard-fuzz-" + std::to_string(getpid()));
        std::filesystem::create_directories(path_);
    }
    ~OutputFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

/// What the scheme saves; empty if it has nothing to save.
template <class Scheme>
std::string savedBytes(const Scheme& scheme) {
    static const OutputFolder folder;
    const auto file = folder / "out.txt";
    static unsigned saves = 0;  // every second save replaces the file of the one before
    if (scheme.Count() == 0 || ++saves % 2 != 0) std::filesystem::remove(file);
    require(scheme.SaveData(file) == (scheme.Count() != 0), "saving succeeds, but for an empty scheme");
    require(std::filesystem::exists(file) == (scheme.Count() != 0), "a file is there when one was saved");
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

template <class Scheme>
void load(Scheme& scheme, std::string_view bytes) {
    const MemoryFile file(bytes);
    require(scheme.LoadData(file.path()), "loading answers true");
}
