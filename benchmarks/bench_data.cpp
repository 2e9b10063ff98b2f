// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "bench_data.h"

#include "store/database.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace ostrand::bench {

namespace {

/// Where a project of a size lies.
QString dataPath(const QString& name)
{
    const QDir bin(QCoreApplication::applicationDirPath());
    bin.mkpath(u"../bench-data"_s);
    return bin.filePath(u"../bench-data/"_s + name);
}

void addDocuments(const store::Database& file, int count)
{
    static const QStringList kinds{
        u"DATASHEET"_s, u"PID"_s, u"LOOP DWG"_s, u"REQUISITION"_s, u"PURCHASE ORDER"_s};
    // A step that shares no factor with a usual count mixes the titles among the numbers.
    constexpr int step = 7919;
    auto scope = file.writeScope();
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i).rightJustified(6, u'0');
        const QString place =
            QString::number(static_cast<qint64>(i) * step % count).rightJustified(6, u'0');
        file.Execute(u"insert into document (docNo, docType, Title, Path, Filename) values ('HGC-"_s
                     + number + u"', '"_s + kinds[i % kinds.size()] + u"', 'Drawing of loop "_s
                     + place + u"', '/plant/drawings', 'HGC-"_s + number + u".pdf')"_s);
    }
    scope.Commit();
}

} // namespace

QString projectOf(int tags)
{
    const QDir bin(QCoreApplication::applicationDirPath());
    QString path = dataPath(u"tags-%1.mdb"_s.arg(tags));
    if (!QFile::exists(path)) {
        const int code = QProcess::execute(bin.filePath(u"ostrand-make-project"_s),
                                           {u"generate"_s, QString::number(tags), path});
        if (code != 0)
            qFatal("the sample of %d tags could not be made", tags);
    }
    return path;
}

QString projectOfDocuments(int documents)
{
    QString path = dataPath(u"documents-%1.mdb"_s.arg(documents));
    if (!QFile::exists(path)) {
        const QString unfinished = path + u".part"_s;
        store::copyDatabase(QCoreApplication::applicationDirPath() + u"/index.mdb"_s, unfinished);
        addDocuments(store::DBEngine::OpenDatabase(unfinished), documents);
        QFile::rename(unfinished, path);
    }
    return path;
}

} // namespace ostrand::bench
