// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/run_desk.h"

#include "app/program.h"
#include "datasheets/cell_text.h"
#include "support/workbook_file.h"
#include "toolkit/ansi_text.h"

#include <QDir>
#include <QFile>
#include <QProgressBar>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrand::tests {

RunDesk::RunDesk(const QString& pidDatabase)
{
    QDir(path(QString())).mkdir(u"sheets"_s);
    QDir(path(QString())).mkdir(u"bin"_s);
    app::setInstallationFolder(path(u"bin"_s));
    project = emptyProject();
    setAttribute(u"DefaultDatasheetFolder"_s, folder());
    setAttribute(u"DefaultP&IDDatabase"_s, pidDatabase);
}

RunDesk::~RunDesk()
{
    prompts.whileOpen = {};
}

void RunDesk::setAttribute(const QString& name, const std::optional<QString>& value) const
{
    const QString literal = value ? u'\'' + *value + u'\'' : u"Null"_s;
    execute(project,
            u"update qryProjectInfo set attributeValue = "_s + literal
                + u" where attributeName = '"_s + name + u'\'');
}

void RunDesk::mapCell(const QString& cell, const QString& table, const QString& field) const
{
    execute(project,
            u"insert into Map (DatasheetType, Worksheet, object, Field, TableName) values ('"_s
                + type + u"', '"_s + front + u"', '"_s + cell + u"', '"_s + field + u"', '"_s
                + table + u"')"_s);
}

void RunDesk::addSheetTag(const QString& tag) const
{
    addTag(tag);
    execute(project,
            u"update qryIndex set DatasheetPath = 'X:\\sheets', DatasheetFileName = 'some.xls' "
            u"where Tag = '"_s
                + tag + u'\'');
}

void RunDesk::giveSheet(const QString& tag, const std::vector<MapLine>& map, const Cells& cells)
{
    addSheetTag(tag);
    makeSheet(tag + u".xls"_s, map, cells);
}

void RunDesk::makeSheet(const QString& name, const std::vector<MapLine>& map, const Cells& cells)
{
    Cells rows{{u"A1"_s, u"Table"_s}, {u"B1"_s, u"Field"_s}};
    for (std::size_t i = 0; i < map.size(); ++i) {
        for (std::size_t column = 0; column < map[i].size(); ++column) {
            if (!std::holds_alternative<std::monostate>(map[i][column])) {
                const QChar letter(u'A' + static_cast<char16_t>(column));
                rows[letter + QString::number(i + 2)] = map[i][column];
            }
        }
    }
    writeWorkbook(
        sheetFile(name),
        {.properties = {{u"DatasheetType"_s, type}},
         .sheets = {{.name = front, .cells = cells}, {.name = u"NOTES"_s}, {mapSheet, rows}}});
}

MapLine RunDesk::toFront(const QString& table, const QString& field, const QString& cell)
{
    return {table, field, front, cell.left(1), cell.mid(1)};
}

QStringList RunDesk::runLogged(const QString& button, bool ended)
{
    open(project);
    run(button);
    return logged(button.mid(3) + u".log"_s, ended);
}

void RunDesk::run(const QString& button)
{
    press(button);
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!window.findChild<QProgressBar*>(u"Progress"_s)->isVisible());
    QCOMPARE(panel(1),
             u"Record: "_s + QString::number(tags().AbsolutePosition() + 1) + u" of "_s
                 + QString::number(tags().RecordCount()));
    QVERIFY(grid().isEnabled());
    QCOMPARE(office.applications(), 0);
}

QStringList RunDesk::logged(const QString& name, bool ended) const
{
    static const QRegularExpression stamp(u"^Log is (created|ended) at \\d.*\\d.*\\.$"_s);
    QFile file(logFile(name));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {u"no log"_s};
    QStringList lines = toolkit::decodeText(file.readAll()).split(u'\n');
    if (lines.takeLast() != QString() || !stamp.match(lines.value(0)).hasMatch()
        || !lines.takeFirst().startsWith(u"Log is created"_s))
        return {u"no first line"_s};
    if (!ended)
        return lines;
    if (lines.isEmpty() || !stamp.match(lines.last()).hasMatch()
        || !lines.takeLast().startsWith(u"Log is ended"_s))
        return {u"no last line"_s};
    return lines;
}

spreadsheet::CellValue RunDesk::fileCell(const QString& name, const QString& cell) const
{
    const auto book = readWorkbook(sheetFile(name));
    if (!book)
        return u"no workbook"_s;
    const Cells& cells = book->sheets.front().cells;
    const auto found = cells.find(cell);
    return found == cells.end() ? spreadsheet::CellValue() : found->second;
}

QString RunDesk::fileText(const QString& name, const QString& cell) const
{
    return datasheets::textOf(fileCell(name, cell));
}

} // namespace ostrand::tests
