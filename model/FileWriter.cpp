// SPDX-License-Identifier: MIT
#include "model/FileWriter.h"

#include <QtCore/QFile>
#include <QtCore/QSaveFile>
#include <QtCore/QStringDecoder>
#include <csignal>

#include "model/FileSteps.h"

namespace {

// Small enough to be still in the processor's cache when the operating system copies it.
constexpr std::size_t largestPiece = std::size_t{256} << 10;

QString nameOf(const std::filesystem::path& file) {
    return QFile(file).fileName();
}

std::filesystem::path pathOf(const QString& name) {
    return QFile(name).filesystemFileName();
}

// The name with every accent in its letter, if its bytes are valid text.
std::string composed(const std::filesystem::path& file) {
    const auto bytes = file.u8string();
    const QByteArrayView view(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(view);
    if (decode.hasError()) return view.toByteArray().toStdString();
    return text.normalized(QString::NormalizationForm_C).toStdString();
}

// For a moment, before it takes the place of an old one, the new file has a longer name. If that is too long, the
// save would otherwise fail only at its end.
bool leavesRoomForALongerName(const std::filesystem::path& file) {
    std::error_code error;
    auto longer = std::filesystem::weakly_canonical(file, error);
    longer += ".XXXXXX";
    static_cast<void>(std::filesystem::status(longer, error));
    return error != std::errc::filename_too_long;
}

}  // namespace

bool isSameName(const std::filesystem::path& one, const std::filesystem::path& other) {
    return one == other || composed(one) == composed(other);
}

// While this exists, writing beyond the limit for the size of a file is a failed write and does not end the program.
// A program with a handler for the signal still receives it.
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
    // A name whose bytes are not valid text would be written as another name.
    const bool nameable = isSameName(pathOf(file_->file.fileName()), file);
    good_ = replaceable && nameable && isReplaceable(file) && leavesRoomForALongerName(file) &&
            file_->file.open(QIODevice::WriteOnly);
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

// Every step is checked: on a full disk any single one may claim success and leave a truncated file.
void FileWriter::writePiece() {
    good_ = good_ && file_->file.write(piece_.data(), static_cast<qint64>(piece_.size())) ==
                         static_cast<qint64>(piece_.size());
    piece_.clear();
}

bool FileWriter::commit() {
    writePiece();
    const int handle = file_->file.handle();  // once: on Windows each call takes another of the numbers for files
    good_ = good_ && file_->file.flush() && isOnDisk(handle);
    if (!good_) return false;
    takeOver(handle, pathOf(file_->file.fileName()));
    return replaceFromAnotherProcess(handle, pathOf(file_->file.fileName())) || file_->file.commit();
}
