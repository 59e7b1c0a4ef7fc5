// SPDX-License-Identifier: MIT
#include "views/WindowsCodePage.h"

#include <windows.h>

#include <array>

namespace {

constexpr char16_t firstHalf = 0xDC00;  // and the number of the byte

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

// How many bytes the first one says that a character of UTF-8 has; 1 where it cannot begin one.
std::size_t lengthInUtf8(char first) {
    const auto code = static_cast<unsigned char>(first);
    return code >= 0xF0 ? 4 : code >= 0xE0 ? 3 : code >= 0xC0 ? 2 : 1;
}

int sizeOf(std::string_view bytes) {
    return static_cast<int>(bytes.size());
}

// The number as the registry keeps it; 0 where it does not.
unsigned codePageInRegistry() {
    std::array<wchar_t, 16> text{};
    DWORD size = sizeof(text) - sizeof(wchar_t);
    const auto* const key = L"SYSTEM\\CurrentControlSet\\Control\\Nls\\CodePage";
    if (RegGetValueW(HKEY_LOCAL_MACHINE, key, L"ACP", RRF_RT_REG_SZ, nullptr, text.data(), &size) != ERROR_SUCCESS)
        return 0;
    return QString::fromWCharArray(text.data()).toUInt();
}

}  // namespace

unsigned systemCodePage() {
    const auto number = codePageInRegistry();
    return IsValidCodePage(number) ? number : GetACP();
}

std::size_t WindowsCodePage::lengthOfFirst(std::string_view bytes) const {
    if (number_ == CP_UTF8) return lengthInUtf8(bytes.front());
    return IsDBCSLeadByteEx(number_, static_cast<BYTE>(bytes.front())) ? 2 : 1;
}

// The character that these bytes stand for; empty if they do not stand for one that becomes bytes again.
QString WindowsCodePage::characterOf(std::string_view bytes) const {
    std::array<wchar_t, 4> units{};
    const int count = MultiByteToWideChar(number_, MB_ERR_INVALID_CHARS, bytes.data(), sizeOf(bytes), units.data(),
                                          static_cast<int>(units.size()));
    const auto character = QString::fromWCharArray(units.data(), count);
    const bool isOne = count == 1 || (count == 2 && character.front().isHighSurrogate());
    return isOne && encode(character) ? character : QString();
}

QString WindowsCodePage::decode(std::string_view bytes, std::size_t most) const {
    QString text;
    text.reserve(static_cast<qsizetype>(std::min(bytes.size(), most)));
    for (std::size_t at = 0; at < bytes.size();) {
        const auto rest = bytes.substr(at);
        const auto length = isAscii(rest.front()) ? 1 : lengthOfFirst(rest);
        auto character = isAscii(rest.front())  ? QString(QLatin1Char(rest.front()))
                         : rest.size() < length ? QString()
                                                : characterOf(rest.substr(0, length));
        const auto taken = character.isEmpty() ? 1 : length;
        if (at + taken > most) break;
        if (character.isEmpty()) character = QChar(firstHalf + static_cast<unsigned char>(rest.front()));
        text += character;
        at += taken;
    }
    return text;
}

std::string WindowsCodePage::bytesOf(const QString& character) const {
    std::array<char, 8> bytes{};
    const int count = WideCharToMultiByte(number_, 0, reinterpret_cast<const wchar_t*>(character.utf16()),
                                          static_cast<int>(character.size()), bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, nullptr);
    return {bytes.data(), static_cast<std::size_t>(count)};
}

// Windows writes a similar character for one that the code page lacks, so the bytes are read again.
std::optional<std::string> WindowsCodePage::encode(const QString& character) const {
    if (character.size() == 1) {
        const auto unit = character.front().unicode();
        if (unit < 0x80) return std::string(1, static_cast<char>(unit));
        if (unit >= firstHalf + 0x80 && unit <= firstHalf + 0xFF)
            return std::string(1, static_cast<char>(unit - firstHalf));
    }
    const auto bytes = bytesOf(character);
    std::array<wchar_t, 4> units{};
    const int count =
        MultiByteToWideChar(number_, 0, bytes.data(), sizeOf(bytes), units.data(), static_cast<int>(units.size()));
    if (bytes.empty() || QString::fromWCharArray(units.data(), count) != character) return {};
    return bytes;
}
