// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/program_fixture.h"

#include "app/CRegHndlr.h"
#include "app/main_window.h"
#include "app/program.h"
#include "app/state.h"
#include "store/database.h"
#include "store/recordset.h"

#include <QFile>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

QString binFolder()
{
    return QString::fromUtf8(OSTRAND_BIN_DIR);
}

void copyWritable(const QString& from, const QString& to)
{
    if (!QFile::copy(from, to))
        qFatal("cannot copy %s", qPrintable(from));
    QFile::setPermissions(to, QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace

ProgramFixture::ProgramFixture()
    : prompts(installScriptedPrompts())
{
    app::nameApplication();
    app::setInstallationFolder(binFolder());
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path(u"settings"_s));
    QSettings().clear();
    app::g_frmIndex.reset();
    app::g_objRegHndlr = std::make_unique<app::CRegHndlr>();
    app::g_strIndexFile.clear();
    app::g_blnPidLinked = false;
}

ProgramFixture::~ProgramFixture()
{
    app::g_frmIndex.reset();
    app::g_objRegHndlr.reset();
    app::setInstallationFolder(QString());
}

QString ProgramFixture::path(const QString& name) const
{
    return m_folder.filePath(name);
}

QString ProgramFixture::emptyProject(const QString& name) const
{
    copyWritable(binFolder() + u"/index.mdb"_s, path(name));
    return path(name);
}

QString ProgramFixture::sampleProject(const QString& name) const
{
    copyWritable(binFolder() + u"/Samples/Heronsfield.mdb"_s, path(name));
    return path(name);
}

QString ProgramFixture::file(const QString& name, const QByteArray& content) const
{
    QFile made(path(name));
    if (!made.open(QIODevice::WriteOnly) || made.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
    return path(name);
}

void ProgramFixture::execute(const QString& project, const QString& sql)
{
    store::DBEngine::OpenDatabase(project).Execute(sql);
}

QString ProgramFixture::value(const QString& project, const QString& sql)
{
    const auto rows = store::DBEngine::OpenDatabase(project).OpenRecordset(sql);
    if (rows->Eof())
        return u"(none)"_s;
    const store::Value found = rows->Field(0);
    return found.isNull() ? u"(null)"_s : found.text();
}

QStringList ProgramFixture::values(const QString& project, const QString& sql)
{
    const auto rows = store::DBEngine::OpenDatabase(project).OpenRecordset(sql);
    QStringList found;
    for (; !rows->Eof(); rows->MoveNext())
        found << rows->Field(0).text();
    return found;
}

} // namespace ostrand::tests
