// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "index/frmIndex.h"
#include "index/index_columns.h"
#include "support/program_fixture.h"
#include "toolkit/data_grid.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace ostrand::tests {

/// The main window, shown, with a project open in it or none.
class IndexFixture : public ProgramFixture
{
public:
    IndexFixture()
        : window(makeWindow())
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window does not become active");
    }

    ~IndexFixture()
    {
        datasheets::g_objXlHndlr.reset();
        app::g_frmIndex.reset();
    }
    IndexFixture(const IndexFixture&) = delete;
    IndexFixture& operator=(const IndexFixture&) = delete;

    /// Opens a project and lets the window paint.
    void open(const QString& path)
    {
        project = path;
        window.OpenIndex(path);
        QCoreApplication::processEvents();
    }

    toolkit::DataGrid& grid()
    {
        return *window.findChild<toolkit::DataGrid*>(QStringLiteral("GridIndex"));
    }
    toolkit::DataGrid::Column cell(int column) { return grid().Columns(column); }
    QString cellText(int column) { return cell(column).Value().text(); }
    store::Recordset& tags() { return window.dbIndex().Recordset(); }
    QString panel(int number)
    {
        return window.findChild<QLabel*>(QStringLiteral("Panel") + QString::number(number))->text();
    }

    /// Presses a button as the user does; a disabled one fails the test.
    void press(const QString& name)
    {
        auto* button = window.findChild<QPushButton*>(name);
        QVERIFY2(button && button->isEnabled(), qPrintable(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }
    /// Chooses a menu entry as the user does; a disabled one fails the test.
    void choose(const QString& name)
    {
        auto* action = window.findChild<QAction*>(name);
        QVERIFY2(action && action->isEnabled(), qPrintable(name));
        action->trigger();
    }

    /// Makes the record of a tag the current one.
    void goTo(const QString& tag)
    {
        tags().FindFirst(QStringLiteral("Tag = '") + tag + QStringLiteral("'"));
        QVERIFY2(!tags().NoMatch(), qPrintable(tag));
        QCoreApplication::processEvents();
    }
    /// Types into the new-record row's tag cell: the row is then being added.
    void startNewTag(const QString& tag)
    {
        const int newRow = grid().model()->rowCount() - 1;
        grid().setCurrentIndex(grid().model()->index(newRow, index::column::tag));
        cell(index::column::tag).setValue(tag);
    }
    QString stored(const QString& tag, const QString& field) const
    {
        return value(project,
                     QStringLiteral("select ") + field
                         + QStringLiteral(" from qryIndex where Tag = '") + tag
                         + QStringLiteral("'"));
    }
    /// The ties of a tag as "number/context", in order.
    QStringList ties(const QString& tag) const
    {
        return values(project,
                      QStringLiteral("select docNo & '/' & context from itemDocXRef where "
                                     "PlantItemNo = '")
                          + tag + QStringLiteral("' order by docNo, context"));
    }
    void addDocument(const QString& number, const QString& kind) const
    {
        execute(project,
                QStringLiteral("insert into document (docNo, docType) values ('") + number
                    + QStringLiteral("', '") + kind + QStringLiteral("')"));
    }
    void addTag(const QString& tag) const
    {
        execute(project,
                QStringLiteral("insert into [index] (PlantItemNo) values ('") + tag
                    + QStringLiteral("')"));
    }
    void addTie(const QString& tag, const QString& number, const QString& context) const
    {
        execute(project,
                QStringLiteral("insert into itemDocXRef (PlantItemNo, docNo, context) values ('")
                    + tag + QStringLiteral("', '") + number + QStringLiteral("', '") + context
                    + QStringLiteral("')"));
    }
    QStringList texts() { return prompts.takeTexts(); }

    QString project;
    index::frmIndex& window;

private:
    static index::frmIndex& makeWindow()
    {
        datasheets::g_objXlHndlr = std::make_unique<datasheets::cXlHndlr>();
        auto made = std::make_unique<index::frmIndex>();
        index::frmIndex& reference = *made;
        app::g_frmIndex = std::move(made);
        return reference;
    }
};

} // namespace ostrand::tests
