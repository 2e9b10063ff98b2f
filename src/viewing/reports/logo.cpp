// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/logo.h"

#include "toolkit/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

namespace ostrand::viewing::reports {

QImage readLogo(const QString& stored, const QString& project, QSize mostPixels)
{
    constexpr qint64 mostBytes = qint64{64} << 20;
    if (stored.isEmpty())
        return {};
    const QFileInfo file(QFileInfo(project).dir(), toolkit::filePath(stored));
    if (!file.isFile() || file.size() > mostBytes)
        return {};
    QImageReader reader(file.filePath());
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    // Readers that know how to, never hold the whole of a large picture.
    if (size.width() > mostPixels.width() || size.height() > mostPixels.height())
        reader.setScaledSize(size.scaled(mostPixels, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
}

} // namespace ostrand::viewing::reports
