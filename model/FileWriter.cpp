// SPDX-License-Identifier: MIT
#include "model/FileWriter.h"

#include <QtCore/QFile>
#include <QtCore/QSaveFile>

namespace {

constexpr std::size_t largestPiece = std::size_t{4} << 20;

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

}  // namespace

struct FileWriter::File {
    explicit File(const QString& name) : file(name) {}
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
    good_ = good_ && file_->file.flush();
    if (!good_) file_->file.cancelWriting();
    return good_ && file_->file.commit();
}
