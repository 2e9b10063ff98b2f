// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "logos/canvas.h"

#include <QImage>
#include <QPainter>

namespace ostrand::logos {
namespace {

constexpr int pixelsPerPoint = 4;
constexpr double pointsPerInch = 72;
constexpr double inchesPerMetre = 1 / 0.0254;
constexpr int quality = 95; ///< of formats that have one

} // namespace

bool writePicture(const QString& file,
                  const QSizeF& size,
                  const std::function<void(QPainter&)>& draw)
{
    QImage image((size * pixelsPerPoint).toSize(), QImage::Format_RGB32);
    const int dots = qRound(pixelsPerPoint * pointsPerInch * inchesPerMetre);
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelsPerPoint, pixelsPerPoint);
    draw(painter);
    painter.end();
    const bool hasQuality = file.endsWith(QStringLiteral(".jpg"));
    return image.save(file, nullptr, hasQuality ? quality : -1);
}

} // namespace ostrand::logos
