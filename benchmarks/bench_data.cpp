// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "bench_data.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace ostrand::bench {

QString projectOf(int tags)
{
    const QDir bin(QCoreApplication::applicationDirPath());
    bin.mkpath(u"../bench-data"_s);
    QString path = bin.filePath(u"../bench-data/tags-%1.mdb"_s.arg(tags));
    if (!QFile::exists(path)) {
        const int code = QProcess::execute(bin.filePath(u"ostrand-make-project"_s),
                                           {u"generate"_s, QString::number(tags), path});
        if (code != 0)
            qFatal("the sample of %d tags could not be made", tags);
    }
    return path;
}

} // namespace ostrand::bench
