// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringDecoder>

#include <optional>

namespace ostrand::toolkit {

/// The lines of a text file, ended by CR LF, LF or CR, whatever the file's size and content. The
/// text is what its byte order mark says, else UTF-8 or Windows-1252, line by line.
class TextLines
{
public:
    /// A longer line, in bytes, is cut to this; the rest of it is passed over.
    static constexpr qsizetype longestLine = 65536;

    /// Raises 53 (no such file), 57 (the device failed), 70 (permission denied).
    explicit TextLines(const QString& path);

    /// Raises 57.
    bool atEnd();
    /// The next line without its end. Raises 57, and 62 behind the last line.
    QString readLine();
    /// The line read last was longer than `longestLine`.
    bool wasCut() const { return m_wasCut; }

private:
    void skipMark();
    QByteArray decoded(const QByteArray& bytes);
    bool fill();
    bool refill();

    QFile m_file;
    QByteArray m_buffer; ///< bytes read ahead, in UTF-8 where a mark told the encoding
    qsizetype m_at = 0;
    bool m_wasCut = false;
    std::optional<QStringDecoder> m_decoder; ///< of a file with a mark
};

} // namespace ostrand::toolkit
