// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_fixture.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ostrand::tests {

using toolkit::DataGrid;
using toolkit::GridColumn;

GridFixture::GridFixture(int rows)
    : grid(*new DataGrid(&window)),
      prompts(installScriptedPrompts())
{
    file.fill(rows);
    file.run("INSERT INTO paper VALUES ('**DELETED**', NULL), ('D-1', 'first'), ('D-2', 'second'),"
             " ('AD-10', 'third'), ('D-10', 'fourth');"
             "INSERT INTO tie VALUES ('PT-00001', 'D-1'), ('PT-00002', 'D-2');");
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(&grid);
    grid.addColumn({.name = u"Tag"_s, .field = u"Tag"_s, .caption = u"Tag"_s, .width = 1500});
    grid.addColumn({.name = u"Service"_s, .field = u"Service"_s, .caption = u"Service"_s});
    grid.addColumn({.name = u"Doc"_s, .field = {}, .caption = u"Document"_s, .width = 1800});
    grid.addColumn({.name = u"Size"_s,
                    .field = u"Size"_s,
                    .caption = u"Size"_s,
                    .style = GridColumn::Style::TextWithButton,
                    .width = 1500});
    papers.setDatabaseName(file.path());
    papers.setRecordSource(u"select doc from paper"_s);
    papers.Refresh();
    list.setDataControl(&papers);
    list.setListField(u"doc"_s);
    grid.Columns(Doc).setDropDown(&list);
    QObject::connect(&grid, &DataGrid::rowLoaded, &grid, [this](store::RowMark mark) {
        loaded.push_back(mark.key);
        const QString tag = grid.Columns(Tag).CellValue(mark).text();
        const auto ties =
            control.Database().OpenRecordset(u"select doc from tie where tag = '"_s + tag + u"'"_s);
        if (!ties->Eof())
            grid.Columns(Doc).setCellValue(mark, ties->Field(0));
    });
    control.setDatabaseName(file.path());
    control.setRecordSource(u"qryItem"_s);
    grid.setDataControl(&control);
    control.Refresh();
}

GridFixture::~GridFixture()
{
    toolkit::setPromptHost(nullptr);
}

void GridFixture::show()
{
    window.resize(900, 320);
    window.show();
    QApplication::setActiveWindow(&window);
    grid.setFocus();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_VERIFY(grid.hasFocus());
    QTRY_VERIFY(records().allKeysRead());
}

QWidget* GridFixture::focus()
{
    return QApplication::focusWidget();
}

QLineEdit* GridFixture::editor() const
{
    return grid.viewport()->findChild<QLineEdit*>();
}

bool GridFixture::isEditing() const
{
    return !editor()->isHidden();
}

void GridFixture::press(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(focus(), static_cast<Qt::Key>(key), modifiers);
}

void GridFixture::type(const QString& text) const
{
    for (const QChar character : text)
        QTest::keyClick(focus(), character.toLatin1());
}

void GridFixture::click(int row,
                        int column,
                        Qt::MouseButton button,
                        Qt::KeyboardModifiers modifiers)
{
    const QRect cell = grid.visualRect(grid.model()->index(row, column));
    QTest::mouseClick(grid.viewport(), button, modifiers, cell.topLeft() + QPoint(6, 6));
}

void GridFixture::clickButton()
{
    const QRect cell = grid.visualRect(grid.currentIndex());
    const QPoint place(cell.right() - cell.height() / 2, cell.center().y());
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
}

void GridFixture::clickRowHeader(int row, Qt::KeyboardModifiers modifiers)
{
    const QHeaderView* header = grid.verticalHeader();
    const QPoint place(header->width() / 2,
                       header->sectionViewportPosition(row) + header->sectionSize(row) / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, modifiers, place);
}

void GridFixture::goTo(int row, int column)
{
    grid.setCurrentIndex(grid.model()->index(row, column));
}

QString GridFixture::shown(int row, int column) const
{
    return grid.model()->index(row, column).data().toString();
}

QString GridFixture::stored(const QString& sql) const
{
    const auto result = file.open().OpenRecordset(sql);
    return result->Eof() ? u"(none)"_s : result->Field(0).text();
}

} // namespace ostrand::tests
