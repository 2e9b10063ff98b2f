// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/ansi_text.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace ostrand::toolkit {
namespace {

// The code page is Latin-1 but for these places. Those without a character map to themselves.
constexpr unsigned char firstOwn = 0x80;
constexpr std::array<char16_t, 32> own{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char16_t lastByte = 0xFF;

bool isOwn(char16_t code)
{
    return code >= firstOwn && code < firstOwn + own.size();
}

char16_t decoded(unsigned char byte)
{
    return isOwn(byte) ? own.at(byte - firstOwn) : byte;
}

std::optional<char> encoded(char16_t code)
{
    const auto* found = std::find(own.begin(), own.end(), code);
    if (found != own.end())
        return static_cast<char>(firstOwn + std::distance(own.begin(), found));
    if (code > lastByte || isOwn(code))
        return std::nullopt;
    return static_cast<char>(code);
}

} // namespace

QString decodeText(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    if (!utf8.hasError())
        return text;
    text.resize(0);
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += QChar(decoded(static_cast<unsigned char>(byte)));
    return text;
}

std::optional<QByteArray> encodeAnsi(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const auto byte = encoded(character.unicode());
        if (!byte)
            return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

} // namespace ostrand::toolkit
