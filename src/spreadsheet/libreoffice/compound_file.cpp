// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/compound_file.h"

#include <QStringList>
#include <QtEndian>

#include <vector>

using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr qint64 headerSize = 512;
constexpr int sectorShiftAt = 0x1E;
constexpr int tableCountAt = 0x2C;
constexpr int firstTableAt = 0x4C;
constexpr quint32 tablesInHeader = 109;
constexpr quint32 freeSector = 0xFFFFFFFF;
constexpr int smallestShift = 9;
constexpr int largestShift = 12;
constexpr int entrySize = 128;
constexpr int nameLengthAt = 64; ///< bytes, with the zero at the end
constexpr int kindAt = 66;
constexpr char streamKind = 2;

quint32 wordAt(const QByteArray& bytes, qsizetype place)
{
    return qFromLittleEndian<quint32>(bytes.constData() + place);
}

QByteArray readAt(QIODevice& file, qint64 place, qint64 length)
{
    return file.seek(place) ? file.read(length) : QByteArray();
}

} // namespace

bool isCompoundFile(QIODevice& file)
{
    return readAt(file, 0, 8) == QByteArray::fromHex("d0cf11e0a1b11ae1");
}

bool isCompleteCompoundFile(QIODevice& file)
{
    const QByteArray header = readAt(file, 0, headerSize);
    if (header.size() < headerSize)
        return false;
    const int shift = qFromLittleEndian<quint16>(header.constData() + sectorShiftAt);
    if (shift < smallestShift || shift > largestShift)
        return false;
    const qint64 sectorSize = qint64{1} << shift;
    const quint32 tables = std::min(wordAt(header, tableCountAt), tablesInHeader);
    const qint64 sectors = (file.size() - 1) / sectorSize; // the header takes the place of one
    for (quint32 table = 0; table < tables; ++table) {
        const quint32 sector = wordAt(header, firstTableAt + 4 * qsizetype{table});
        const QByteArray entries = readAt(file, (qint64{sector} + 1) * sectorSize, sectorSize);
        if (entries.size() < sectorSize)
            return false;
        const qint64 first = qint64{table} * (sectorSize / 4);
        for (qint64 i = 0; i < sectorSize / 4; ++i) {
            if (wordAt(entries, 4 * i) != freeSector && first + i >= sectors)
                return false;
        }
    }
    return true;
}

bool holdsWorkbook(QIODevice& file)
{
    // The last is any newer document behind a password.
    static const QStringList names{u"workbook"_s, u"book"_s, u"encryptedpackage"_s};
    if (!file.seek(headerSize))
        return false;
    // Directory entries stand anywhere, at multiples of their size.
    for (QByteArray entry = file.read(entrySize); entry.size() == entrySize;
         entry = file.read(entrySize)) {
        const int length = qFromLittleEndian<quint16>(entry.constData() + nameLengthAt);
        if (entry[kindAt] != streamKind || length < 2 || length > nameLengthAt)
            continue;
        QString name;
        for (int place = 0; place < length - 2; place += 2)
            name += QChar(qFromLittleEndian<quint16>(entry.constData() + place));
        if (names.contains(name, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace ostrand::spreadsheet::libreoffice
