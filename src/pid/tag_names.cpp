// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/tag_names.h"

#include "spreadsheet/error.h"
#include "store/error.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace ostrand::pid {

QString runFileName(const QString& tag)
{
    const QChar separator = tag.contains(u'/') ? u'/' : u'\\';
    return QString(tag).replace(separator, u'-') + u".xls"_s;
}

QString lookupName(const QString& tag)
{
    return tag.section(u'.', 0, 0);
}

InstrumentKey importKey(const QString& lookup)
{
    const InstrumentKey key = exportKey(lookup);
    return {key.function, lookup.mid(key.function.size() + 1)};
}

InstrumentKey exportKey(const QString& lookup)
{
    return {hyphenPiece(lookup, 0), hyphenPiece(lookup, 1)};
}

QString hyphenPiece(const QString& text, int index)
{
    const QStringList pieces = text.split(u'-');
    if (text.isEmpty() || index >= pieces.size()) {
        throw store::Error(spreadsheet::errors::subscriptOutOfRange,
                           QCoreApplication::translate("pid", "Subscript out of range"));
    }
    return pieces[index];
}

} // namespace ostrand::pid
