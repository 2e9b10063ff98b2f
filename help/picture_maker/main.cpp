// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// ostrand-make-pictures LIST FROM TO: makes the manual's pictures out of those of the guided tour.
// Each line of the list names a picture of the tour and the one it becomes, which fits the width of
// a page and is small. A missing picture is told, and the others are made all the same.
#include "palette.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr int pageWidth = 700;
constexpr qint64 largestFile = 150000;

bool makePicture(const QString& from, const QString& to)
{
    QImage picture(from);
    if (picture.isNull())
        return false;
    if (picture.width() > pageWidth)
        picture = picture.scaledToWidth(pageWidth, Qt::SmoothTransformation);
    // The quality counts from 100, packed least, to 0.
    return ostrand::help::withPalette(picture).save(to, "PNG", 0) && QFile(to).size() < largestFile;
}

QString pngName(const QString& name)
{
    return name.endsWith(".png"_L1) ? name : name + u".png"_s;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4)
        qFatal("usage: ostrand-make-pictures LIST FROM TO");
    QFile list(QFile::decodeName(argv[1]));
    if (!list.open(QFile::ReadOnly))
        qFatal("%s cannot be read", argv[1]);
    const QDir from(QFile::decodeName(argv[2]));
    const QDir to(QFile::decodeName(argv[3]));
    QDir().mkpath(to.path());
    int missing = 0;
    QTextStream lines(&list);
    while (!lines.atEnd()) {
        const QStringList words = lines.readLine().simplified().split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty() || words[0].startsWith(u'#'))
            continue;
        if (words.size() == 2
            && makePicture(from.filePath(pngName(words[0])), to.filePath(pngName(words[1]))))
            continue;
        ++missing;
        qWarning("no picture for: %s", qPrintable(words.join(u' ')));
    }
    return missing == 0 ? 0 : 1;
}
