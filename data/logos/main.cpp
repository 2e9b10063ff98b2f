// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// ostrand-make-logo: draws the logo of the sample project's company.
#include "logos/canvas.h"
#include "logos/lettering.h"

#include <QFile>
#include <QPainter>
#include <QPainterPath>

#include <iostream>

namespace {

using namespace ostrand::logos;

constexpr QSizeF size(160, 40); // all in points
const QColor pine(0x1f, 0x4d, 0x46);
const QColor copper(0xb8, 0x6b, 0x2b);

/// A flame over two waves.
void drawMark(QPainter& painter)
{
    QPainterPath flame(QPointF(20, 4));
    flame.cubicTo(30, 13, 29, 23, 20, 24);
    flame.cubicTo(11, 23, 12, 15, 17, 11);
    flame.cubicTo(18, 14, 19, 14, 20, 4);
    painter.fillPath(flame, copper);
    painter.setPen(QPen(pine, 2.4, Qt::SolidLine, Qt::RoundCap));
    for (const double y : {29.0, 34.5}) {
        QPainterPath wave(QPointF(7, y));
        wave.cubicTo(12, y - 4, 15, y + 4, 20, y);
        wave.cubicTo(25, y - 4, 28, y + 4, 33, y);
        painter.drawPath(wave);
    }
}

void drawLogo(QPainter& painter)
{
    constexpr std::string_view name = "WEXCOMBE";
    constexpr std::string_view trade = "ENERGY";
    const Lettering large{{9.6, 12}, 4.6};
    const Lettering small{{5, 6}, 8};
    constexpr double left = 43;
    drawMark(painter);
    painter.setPen(QPen(pine, 2.2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    drawWord(painter, name, {left, 8}, large);
    painter.setPen(QPen(copper, 1.2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    const double middle = left + wordWidth(name, large) / 2;
    drawWord(painter, trade, {middle - wordWidth(trade, small) / 2, 26}, small);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "usage: ostrand-make-logo OUT\n";
        return 2;
    }
    if (!writePicture(QFile::decodeName(argv[1]), size, drawLogo)) {
        std::cerr << "ostrand-make-logo: " << argv[1] << " can't be written\n";
        return 1;
    }
    return 0;
}
