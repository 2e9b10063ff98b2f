// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/scripted_prompts.h"

#include <QString>
#include <QTemporaryDir>

namespace ostrand::tests {

/// The surroundings of one test: a scratch folder, settings of its own, scripted prompts and the
/// program's shared objects fresh. The installation folder is that of the build.
class ProgramFixture
{
public:
    ProgramFixture();
    ~ProgramFixture();
    ProgramFixture(const ProgramFixture&) = delete;
    ProgramFixture& operator=(const ProgramFixture&) = delete;

    /// A path in the scratch folder.
    QString path(const QString& name) const;
    /// A new, empty project in the scratch folder; gives its path.
    QString emptyProject(const QString& name = QStringLiteral("project.mdb")) const;
    /// The sample project of 418 tags, copied into the scratch folder.
    QString sampleProject(const QString& name = QStringLiteral("sample.mdb")) const;
    /// Writes a file in the scratch folder; gives its path.
    QString file(const QString& name, const QByteArray& content) const;
    /// Runs a statement on a project, apart from the program's own connection objects.
    static void execute(const QString& project, const QString& sql);
    /// The first value of a select; "(none)" for no row, "(null)" for Null.
    static QString value(const QString& project, const QString& sql);
    /// All first values of a select, in order.
    static QStringList values(const QString& project, const QString& sql);

    ScriptedPrompts& prompts;

private:
    QTemporaryDir m_folder;
};

} // namespace ostrand::tests
