// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populate_desk.h"

#include "pid/frmDuplicate.h"
#include "pid/populating.h"

#include <QApplication>
#include <QListView>
#include <QPlainTextEdit>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ostrand::tests {

PopulateDesk::PopulateDesk()
{
    open(emptyProject());
}

void PopulateDesk::name(const std::optional<QString>& pidDatabase) const
{
    const QString value = pidDatabase ? u'\'' + *pidDatabase + u'\'' : u"Null"_s;
    execute(project,
            u"update qryProjectInfo set attributeValue = "_s + value
                + u" where attributeName = 'DefaultP&IDDatabase'"_s);
}

bool PopulateDesk::populate(const Act& act)
{
    bool appeared = false;
    const QObject context;
    QTimer::singleShot(0, &context, [&] {
        auto* list = qobject_cast<pid::frmPopulate*>(QApplication::activeModalWidget());
        if (!list)
            return;
        // A window counts as active while the one that it belongs to is: that is too early.
        appeared = QTest::qWaitFor([list] { return QApplication::activeWindow() == list; });
        act(*list);
        if (list->isVisible())
            list->reject();
    });
    pid::cmdTag();
    return appeared;
}

std::optional<QStringList> PopulateDesk::lines()
{
    std::optional<QStringList> lines;
    populate([&](const pid::frmPopulate& list) { lines = shownLines(list); });
    return lines;
}

bool PopulateDesk::insert(const QStringList& lines)
{
    return populate([&](const pid::frmPopulate& list) {
        select(list, lines);
        confirm(list);
    });
}

QStringList PopulateDesk::shownLines(const pid::frmPopulate& list)
{
    const auto* model = list.findChild<QListView*>(u"lstPopulate"_s)->model();
    QStringList lines;
    for (int row = 0; row < model->rowCount(); ++row)
        lines << model->index(row, 0).data().toString();
    return lines;
}

void PopulateDesk::select(const pid::frmPopulate& list, const QStringList& lines)
{
    auto* view = list.findChild<QListView*>(u"lstPopulate"_s);
    const QStringList shown = shownLines(list);
    for (const QString& line : lines) {
        const auto row = static_cast<int>(shown.indexOf(line));
        QVERIFY2(row >= 0, qPrintable(line));
        const QModelIndex index = view->model()->index(row, 0);
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(),
                          Qt::LeftButton,
                          Qt::ControlModifier,
                          view->visualRect(index).center());
    }
}

void PopulateDesk::click(const QWidget& list, const QString& button)
{
    QTest::mouseClick(list.findChild<QPushButton*>(button), Qt::LeftButton);
}

void PopulateDesk::confirm(const pid::frmPopulate& list)
{
    const QObject context;
    QTimer::singleShot(0, &context, [&] {
        auto* report = qobject_cast<pid::frmDuplicate*>(QApplication::activeModalWidget());
        if (!report)
            return;
        reports << report->findChild<QPlainTextEdit*>(u"rtfDuplicate"_s)->toPlainText();
        click(*report, u"cmdCancel"_s);
    });
    click(list, u"CmdOk"_s);
}

QStringList PopulateDesk::storedTags() const
{
    return values(project, u"select PlantItemNo from [index] order by PlantItemNo"_s);
}

QString PopulateDesk::storedService(const QString& tag) const
{
    return stored(tag, u"ServiceDescription"_s);
}

QStringList PopulateDesk::gridTags()
{
    QStringList tags;
    for (int row = 0; row < grid().model()->rowCount() - 1; ++row)
        tags << grid().model()->index(row, index::column::tag).data().toString();
    return tags;
}

} // namespace ostrand::tests
