// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/scratch_desktop.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

constexpr auto mimeTypes = R"(<?xml version="1.0" encoding="utf-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
<mime-type type="application/x-ostrand-sheet"><glob pattern="*.osh"/>
<alias type="application/x-old-sheet"/><sub-class-of type="application/x-ostrand-base"/></mime-type>
<mime-type type="application/x-ostrand-base"><glob pattern="*.osb"/></mime-type>
<mime-type type="application/x-ostrand-other"><glob pattern="*.oso"/></mime-type>
<mime-type type="application/x-ostrand-packed"><glob pattern="*.ost.gz"/></mime-type>
<mime-type type="text/x-readme"><glob pattern="README"/></mime-type>
</mime-info>
)";

/// The database of types is read once in a process: it stays as long as that.
const QString& mimeFolder()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        QDir(folder.path()).mkpath(u"mime/packages"_s);
        QFile types(folder.filePath(u"mime/packages/ostrand.xml"_s));
        if (!types.open(QIODevice::WriteOnly) || types.write(mimeTypes) < 0)
            qFatal("cannot write the MIME types");
        return folder.path();
    }();
    return path;
}

} // namespace

ScratchDesktop::ScratchDesktop()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(u"config"_s)));
    qputenv("XDG_CONFIG_DIRS", QFile::encodeName(path(u"etc"_s)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(u"home"_s)));
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path(u"share"_s) + u':' + mimeFolder()));
    qputenv("PATH", QFile::encodeName(path(u"bin"_s)));
    qunsetenv("XDG_CURRENT_DESKTOP");
}

void ScratchDesktop::write(const QString& name, const QByteArray& content) const
{
    QDir(m_folder.path()).mkpath(QFileInfo(name).path());
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
}

void ScratchDesktop::entry(const QString& folder, const QString& id, const QByteArray& lines) const
{
    write(folder + u"/applications/"_s + id,
          "[Desktop Entry]\nType=Application\nName=A Program\n" + lines);
}

void ScratchDesktop::list(const QString& name, const QByteArray& lines) const
{
    write(name, lines);
}

QString ScratchDesktop::program(const QString& name) const
{
    const QByteArray notes = QFile::encodeName(path(u"opened"_s));
    write(u"bin/"_s + name,
          "#!/bin/sh\nprintf '%s\\0' \"$0\" \"$PWD\" \"$@\" > '" + notes + ".part'\n/bin/mv '"
              + notes + ".part' '" + notes + "'\n");
    QString made = path(u"bin/"_s + name);
    QFile::setPermissions(made, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return made;
}

QString ScratchDesktop::file(const QString& name) const
{
    write(u"files/"_s + name, "a document");
    return path(u"files/"_s + name);
}

bool ScratchDesktop::hasOpened() const
{
    return QFile::exists(path(u"opened"_s));
}

QStringList ScratchDesktop::opened() const
{
    constexpr int patience = 10'000;
    if (!QTest::qWaitFor([this] { return hasOpened(); }, patience))
        return {};
    QFile notes(path(u"opened"_s));
    if (!notes.open(QIODevice::ReadOnly))
        return {};
    QStringList words = QString::fromUtf8(notes.readAll()).split(QChar(u'\0'));
    words.removeLast();
    notes.remove();
    return words;
}

} // namespace ostrand::tests
