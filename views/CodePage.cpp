#include "views/CodePage.h"

#include <algorithm>

#ifndef Q_OS_WIN
namespace {

// Windows-1252, bytes 80 to 9F; all others are the characters of the same number.
constexpr char16_t upperControls[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t character(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x80 && code < 0xA0 ? upperControls[code - 0x80] : char16_t{code};
}

}  // namespace
#endif

QString decode(std::string_view bytes) {
#ifdef Q_OS_WIN
    return QString::fromLocal8Bit(bytes.data(), static_cast<qsizetype>(bytes.size()));
#else
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::ranges::transform(bytes, text.begin(), [](char byte) { return QChar(character(byte)); });
    return text;
#endif
}

QString decodeForCell(std::string_view bytes) {
    constexpr std::size_t most = 1000;
    return decode(bytes.substr(0, most));
}
