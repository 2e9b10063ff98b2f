// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/logo_picture.h"

#include "spreadsheet/error.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {
namespace {

constexpr qint64 largestFile = 64 << 20;  // bytes
constexpr qint64 mostPixels = 32'000'000; // a page printed at 600 dots to the inch

bool hasGifEnd(QByteArray content)
{
    while (content.endsWith('\0'))
        content.chop(1);
    return content.endsWith(';');
}

/// The readers make up what is missing at the end of such files.
bool isComplete(const QByteArray& format, const QByteArray& content)
{
    if (format == "gif")
        return hasGifEnd(content);
    if (format == "jpeg" || format == "jpg")
        return content.lastIndexOf("\xff\xd9") > content.lastIndexOf("\xff\xda");
    return true;
}

bool isUsable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0 || file.size() > largestFile)
        return false;
    QImageReader reader(&file);
    if (!reader.canRead())
        return true;
    const QByteArray format = reader.format();
    const QSize size = reader.size();
    if (qint64{size.width()} * size.height() > mostPixels || reader.read().isNull())
        return false;
    file.seek(0);
    return isComplete(format, file.readAll());
}

} // namespace

void LogoPicture::require(const QString& file)
{
    const QFileInfo info(file);
    if (info.isFile() && file == m_file && info.lastModified() == m_changed
        && info.size() == m_size)
        return;
    m_size = -1;
    if (!info.isFile() || !isUsable(file)) {
        throw spreadsheet::Error(
            spreadsheet::errors::applicationError,
            QCoreApplication::translate("spreadsheet", "The picture %1 can't be read.").arg(file));
    }
    m_file = file;
    m_changed = info.lastModified();
    m_size = info.size();
}

double scaleToFit(const spreadsheet::Extent& picture, const spreadsheet::Extent& room)
{
    if (picture.width <= 0 || picture.height <= 0)
        return 1;
    return std::min({1.0, room.width / picture.width, room.height / picture.height});
}

} // namespace ostrand::datasheets
