// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/text_lines.h"

#include "toolkit/ansi_text.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::toolkit {
namespace {

constexpr qint64 chunkSize = 65536;
constexpr qsizetype longestMark = 4;

bool endsLine(char byte)
{
    return byte == '\n' || byte == '\r';
}

} // namespace

TextLines::TextLines(const QString& path)
    : m_file(filePath(path))
{
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        if (!m_file.exists())
            throw Error(fileErrors::fileNotFound, u"File not found"_s);
        throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
    }
    skipMark();
}

void TextLines::skipMark()
{
    while (m_buffer.size() < longestMark && fill()) {
    }
    const auto encoding = QStringConverter::encodingForData(m_buffer);
    if (!encoding)
        return;
    m_decoder.emplace(*encoding);
    m_buffer = decoded(m_buffer);
}

QByteArray TextLines::decoded(const QByteArray& bytes)
{
    const QString text = (*m_decoder)(bytes);
    return text.toUtf8();
}

/// Appends the next bytes of the file; false at its end.
bool TextLines::fill()
{
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    const qint64 count = m_file.read(chunk.data(), chunk.size());
    if (count < 0)
        throw Error(fileErrors::deviceError, u"Device I/O error"_s);
    chunk.truncate(count);
    m_buffer += m_decoder ? decoded(chunk) : chunk;
    return count > 0;
}

/// True when there is a byte to read. A chunk may decode to nothing yet.
bool TextLines::refill()
{
    while (m_at == m_buffer.size()) {
        m_buffer.clear();
        m_at = 0;
        if (!fill())
            return false;
    }
    return true;
}

bool TextLines::atEnd()
{
    return !refill();
}

QString TextLines::readLine()
{
    if (!refill())
        throw Error(fileErrors::pastEnd, u"Input past end of file"_s);
    QByteArray line;
    m_wasCut = false;
    do {
        const auto from = m_buffer.cbegin() + m_at;
        const auto end = std::find_if(from, m_buffer.cend(), endsLine);
        const qsizetype length = std::distance(from, end);
        const qsizetype kept = std::min(length, longestLine - line.size());
        line += m_buffer.mid(m_at, kept);
        m_wasCut = m_wasCut || kept < length;
        m_at += length;
    } while (m_at == m_buffer.size() && refill());
    if (m_at < m_buffer.size() && m_buffer.at(m_at++) == '\r' && refill()
        && m_buffer.at(m_at) == '\n')
        ++m_at;
    return decodeText(line);
}

} // namespace ostrand::toolkit
