// SPDX-License-Identifier: MIT
#include "model/FileWriter.h"

#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <csignal>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>
#endif

namespace {

// Still in the processor's cache when the system copies it.
constexpr std::size_t largestPiece = std::size_t{256} << 10;

QString nameOf(const std::filesystem::path& file) {
#ifdef Q_OS_WIN
    return QString::fromStdWString(file.native());
#else
    return QFile::decodeName(QByteArray::fromStdString(file.native()));
#endif
}

std::filesystem::path pathOf(const QString& name) {
#ifdef Q_OS_WIN
    return name.toStdWString();
#else
    return QFile::encodeName(name).toStdString();
#endif
}

// The new file has a longer name for the moment before it takes the place of an old one, and only the end of a save
// would notice that the system does not take that.
bool leavesRoomForALongerName(const std::filesystem::path& file) {
    std::error_code error;
    auto longer = std::filesystem::weakly_canonical(file, error);
    longer += ".XXXXXX";
    static_cast<void>(std::filesystem::status(longer, error));
    return error != std::errc::filename_too_long;
}

#ifdef Q_OS_LINUX

// Some file systems tell only when a file is closed that they could not write it.
// @return whether closing it would succeed; it stays open
bool canBeClosed(int file) {
    const int another = fcntl(file, F_DUPFD_CLOEXEC, 0);
    return another >= 0 && close(another) == 0;
}

// @return whether the disk has the bytes; where it cannot be asked, whether closing the file reports no error
bool isOnDisk(int file) {
    while (fsync(file) != 0) {
        if (errno == EINTR) continue;
        const bool nobodyKnows = errno == EINVAL || errno == EROFS || errno == ENOSYS || errno == EOPNOTSUPP;
        return nobodyKnows && canBeClosed(file);
    }
    return true;
}

// What a file of this mode may be given in another group: no more than to everybody.
mode_t withoutItsGroup(mode_t mode) {
    const mode_t everybody = mode & 07U;
    return (mode & 0707U) | (mode & everybody << 3U & 070U);
}

// Gives the new file the group and the mode of the one that it is to replace, as far as the user may. Setting the
// group may clear bits of the mode, so it comes first.
void takeOver(int newFile, const std::filesystem::path& file) {
    struct stat old {};
    if (stat(file.c_str(), &old) != 0) return;
    const bool hasItsGroup = fchown(newFile, static_cast<uid_t>(-1), old.st_gid) == 0;
    static_cast<void>(fchmod(newFile, hasItsGroup ? old.st_mode & 07777U : withoutItsGroup(old.st_mode)));
}

// Puts a file that has no name yet in the place of an old one. Linux has no single step for that: the new file has a
// name of its own for a moment. A process of its own takes both steps, so that no end of this one comes between. It
// shares the memory of this one, which waits for it, and so costs no time; it does nothing but ask the system.
// @return whether the file is in its place
bool replaceFromAnotherProcess(int newFile, const std::filesystem::path& file) {
    std::error_code error;
    const auto place = std::filesystem::canonical(file, error).native();
    struct stat state {};
    if (error || fstat(newFile, &state) != 0 || state.st_nlink != 0) return false;
    const auto self = "/proc/self/fd/" + std::to_string(newFile);
    const auto name = place + '.' + std::to_string(100'000 + std::random_device()() % 900'000);
    const auto process = vfork();
    if (process == 0) {
        setsid();  // out of reach of a signal to all processes of the terminal
        if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0 &&
            std::rename(name.c_str(), place.c_str()) != 0)
            unlink(name.c_str());
        _exit(0);
    }
    if (process > 0) waitpid(process, nullptr, 0);
    return std::filesystem::equivalent(self, place, error);
}

#else

bool isOnDisk(int) {
    return true;
}

void takeOver(int, const std::filesystem::path&) {
}

bool replaceFromAnotherProcess(int, const std::filesystem::path&) {
    return false;
}

#endif

}  // namespace

// While it exists, a file that grows beyond the limit for files is a failed write, and not the end of the program. A
// program that listens to the signal goes on to hear of it.
class FileWriter::SizeLimitIsAnError {
#ifdef SIGXFSZ
  public:
    SizeLimitIsAnError() : before_(std::signal(SIGXFSZ, SIG_IGN)) {
        if (before_ != SIG_DFL) std::signal(SIGXFSZ, before_);
    }
    ~SizeLimitIsAnError() {
        std::signal(SIGXFSZ, before_);
    }
    SizeLimitIsAnError(const SizeLimitIsAnError&) = delete;
    SizeLimitIsAnError& operator=(const SizeLimitIsAnError&) = delete;

  private:
    void (*before_)(int);
#endif
};

struct FileWriter::File {
    explicit File(const QString& name) : file(name) {}
    SizeLimitIsAnError limit;
    QSaveFile file;
};

FileWriter::FileWriter(const std::filesystem::path& file) : file_(std::make_unique<File>(nameOf(file))) {
    std::error_code error;
    const auto type = std::filesystem::status(file, error).type();
    const bool replaceable =
        type == std::filesystem::file_type::not_found || type == std::filesystem::file_type::regular;
    // Bytes that are no text would be written as another name.
    const bool nameable = pathOf(file_->file.fileName()) == file;
    good_ = replaceable && nameable && leavesRoomForALongerName(file) && file_->file.open(QIODevice::WriteOnly);
}

FileWriter::~FileWriter() = default;

bool FileWriter::isGood() const {
    return good_;
}

void FileWriter::write(std::string_view bytes) {
    while (piece_.size() + bytes.size() > largestPiece) {
        const auto room = largestPiece - piece_.size();
        piece_.append(bytes.substr(0, room));
        bytes.remove_prefix(room);
        writePiece();
    }
    piece_.append(bytes);
}

// Every step is looked at: with a full disk each alone may claim success and leave a truncated file.
void FileWriter::writePiece() {
    good_ = good_ && file_->file.write(piece_.data(), static_cast<qint64>(piece_.size())) ==
                         static_cast<qint64>(piece_.size());
    piece_.clear();
}

bool FileWriter::commit() {
    writePiece();
    good_ = good_ && file_->file.flush() && isOnDisk(file_->file.handle());
    if (!good_) return false;
    takeOver(file_->file.handle(), pathOf(file_->file.fileName()));
    return replaceFromAnotherProcess(file_->file.handle(), pathOf(file_->file.fileName())) || file_->file.commit();
}
