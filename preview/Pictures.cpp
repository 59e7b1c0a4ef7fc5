// SPDX-License-Identifier: MIT
#include "preview/Pictures.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <utility>

#include "database/PictureBytes.h"

namespace {

std::uint32_t littleEndian(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t byte = 4; byte > 0; --byte)
        number = number << 8U | static_cast<unsigned char>(bytes[at + byte - 1]);
    return number;
}

constexpr std::size_t bytesForType = 32;

// Two letters begin many texts, too; so the sizes in the header must be right.
bool isBmp(std::string_view bytes, std::size_t size) {
    if (bytes.size() < 26) return false;
    const auto header = littleEndian(bytes, 14);
    return littleEndian(bytes, 2) == size && header >= 12 && header <= 124;
}

// An open file, closed at the end.
class File {
  public:
    // Without waiting, as for the other end of a pipe.
    explicit File(const std::string& path) : handle_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (handle_ >= 0) close(handle_);
    }
    [[nodiscard]] bool isOpen() const { return handle_ >= 0; }
    // The size of a regular file; nothing of any other.
    [[nodiscard]] std::optional<std::size_t> size() const {
        struct stat status {};
        if (fstat(handle_, &status) != 0 || !S_ISREG(status.st_mode)) return {};
        return static_cast<std::size_t>(status.st_size);
    }
    [[nodiscard]] std::string read(std::size_t most) const {
        std::string bytes(most, '\0');
        std::size_t length = 0;
        while (length < most) {
            const auto count = ::read(handle_, bytes.data() + length, most - length);
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) break;
            length += static_cast<std::size_t>(count);
        }
        bytes.resize(length);
        return bytes;
    }

  private:
    int handle_;
};

bool isPicture(std::string_view bytes, std::size_t size) {
    const auto type = pictureType(bytes);
    if (type == "image/bmp") return isBmp(bytes, size);
    return !type.empty() && (type != "image/webp" || bytes.starts_with("RIFF"));
}

std::string problemWith(std::string_view bytes, std::size_t size) {
    if (size > Pictures::mostBytes) return "it is larger than " + std::to_string(Pictures::mostBytes >> 20U) + " MiB";
    if (!isPicture(bytes, size)) return "it is no picture of type GIF, PNG, JPEG, WebP, AVIF or BMP";
    return {};
}

std::string problemWithFile(const std::string& path) {
    if (!path.starts_with('/')) return "it is not a full path";
    if (path.find('\0') != std::string::npos) return "there is no such file";
    const File file(path);
    if (!file.isOpen()) return errno == EACCES ? "it may not be read" : "there is no such file";
    const auto size = file.size();
    if (!size) return "it is not a file";
    return problemWith(file.read(bytesForType), *size);
}

}  // namespace

void Pictures::beginPage(std::string_view tab) {
    std::erase_if(pages_, [&, isKept = true](const Page& page) mutable {
        return page.tab == tab && !std::exchange(isKept, false);
    });
    pages_.push_front({std::string(tab), {}});
    if (pages_.size() > mostPages) pages_.pop_back();
}

Pictures::Added Pictures::add(Source source) {
    auto name = newName_();
    pages_.front().sources.emplace(name, std::move(source));
    return {name, {}};
}

Pictures::Added Pictures::addBytes(std::string bytes) {
    auto problem = problemWith(bytes, bytes.size());
    return problem.empty() ? add(std::move(bytes)) : Added{{}, std::move(problem)};
}

Pictures::Added Pictures::addFile(const std::string& path) {
    auto problem = problemWithFile(path);
    return problem.empty() ? add(Path{path}) : Added{{}, std::move(problem)};
}

std::optional<Pictures::Picture> Pictures::find(std::string_view name) const {
    for (const auto& page : pages_) {
        const auto found = page.sources.find(name);
        if (found == page.sources.end()) continue;
        const auto* const path = std::get_if<Path>(&found->second);
        auto bytes = path ? std::string() : std::get<std::string>(found->second);
        if (path) {
            const File file(path->path);
            if (!file.isOpen() || !file.size()) return {};
            bytes = file.read(mostBytes + 1);
        }
        if (!problemWith(bytes, bytes.size()).empty()) return {};
        const auto type = pictureType(bytes);
        return Picture{type, std::move(bytes)};
    }
    return {};
}
