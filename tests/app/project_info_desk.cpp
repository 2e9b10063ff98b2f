// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/project_info_desk.h"

#include "app/state.h"
#include "support/in_window.h"
#include "toolkit/data_control.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace ostrand::tests {

ProjectInfoDesk::ProjectInfoDesk()
    : project(emptyProject())
{
    app::g_strIndexFile = project;
    app::g_frmIndex = std::make_unique<FakeMainWindow>(log);
}

void ProjectInfoDesk::open(const std::function<void()>& steps)
{
    inWindow(
        window, [this] { window.ShowInfo(); }, steps);
}

void ProjectInfoDesk::goTo(const QString& attribute, int column)
{
    store::Recordset& attributes = data().Recordset();
    attributes.FindFirst(u"attributeName = '"_s + attribute + u"'"_s);
    QVERIFY2(!attributes.NoMatch(), qPrintable(attribute));
    QCoreApplication::processEvents();
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(attributes.AbsolutePosition(), column));
}

void ProjectInfoDesk::goToNewRow(int column)
{
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(grid().model()->rowCount() - 1, column));
}

void ProjectInfoDesk::expectNotice(const QString& text)
{
    QCOMPARE(prompts.boxes.size(), std::size_t{1});
    QVERIFY(prompts.boxes[0].icon == toolkit::BoxIcon::Information);
    QCOMPARE(texts(), QStringList{text});
}

void ProjectInfoDesk::expectFailure(const QString& text)
{
    QVERIFY(!prompts.boxes.empty());
    QVERIFY(prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    const QStringList all = texts();
    QVERIFY2(all.size() == 1, qPrintable(all.join(u'|')));
    const QString& told = all[0];
    QVERIFY2(told.startsWith(text), qPrintable(told));
}

OtherProgram::OtherProgram(const QString& path)
{
    if (sqlite3_open(path.toUtf8().constData(), &m_file) != SQLITE_OK)
        qFatal("cannot open");
}

OtherProgram::~OtherProgram()
{
    sqlite3_close(m_file);
}

void OtherProgram::run(const char* sql)
{
    if (sqlite3_exec(m_file, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql, sqlite3_errmsg(m_file));
}

} // namespace ostrand::tests
