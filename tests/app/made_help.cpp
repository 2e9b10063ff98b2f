// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "made_help.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

QByteArray htmlPage(const QString& title, const QString& body)
{
    return QString(u"<html><head><meta charset=\"utf-8\"><title>"_s + title
                   + u"</title></head><body>"_s + body + u"</body></html>"_s)
        .toUtf8();
}

QByteArray contentsFile(const QList<std::pair<QString, QString>>& entries)
{
    QString text = u"<HTML><BODY><UL>"_s;
    for (const auto& [title, page] : entries) {
        text += u"<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\""_s + title
                + u"\"><param name=\"Local\" value=\""_s + page + u"\"></OBJECT>"_s;
    }
    return QString(text + u"</UL></BODY></HTML>"_s).toUtf8();
}

void compileHelp(const QString& folder, const QString& name, const HelpSources& sources)
{
    const QTemporaryDir scratch;
    QByteArray project = "[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=made.chm\n"
                         "Contents file=contents.hhc\n\n[FILES]\n";
    for (auto it = sources.begin(); it != sources.end(); ++it) {
        write(scratch.filePath(it.key()), it.value());
        if (it.key() != "contents.hhc"_L1)
            project += it.key().toUtf8() + '\n';
    }
    write(scratch.filePath(u"made.hhp"_s), project);
    QProcess compiler;
    compiler.setWorkingDirectory(scratch.path());
    compiler.start(QString::fromUtf8(OSTRAND_CHMCMD), {u"made.hhp"_s});
    if (!compiler.waitForFinished() || compiler.exitCode() != 0)
        qFatal("%s", compiler.readAllStandardOutput().constData());
    const QString target = folder + u'/' + name + u".chm"_s;
    QDir().mkpath(folder);
    QFile::remove(target);
    if (!QFile::rename(scratch.filePath(u"made.chm"_s), target))
        qFatal("cannot write %s", qPrintable(target));
    writeDigest(target);
}

void writeDigest(const QString& helpFile)
{
    QFile file(helpFile);
    QCryptographicHash digest(QCryptographicHash::Sha256);
    if (!file.open(QFile::ReadOnly) || !digest.addData(&file))
        qFatal("cannot read %s", qPrintable(helpFile));
    write(helpFile + u".sha256"_s, digest.result().toHex());
}

} // namespace ostrand::tests
