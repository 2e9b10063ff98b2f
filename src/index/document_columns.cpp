// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/document_columns.h"

#include "index/index_columns.h"
#include "store/database.h"
#include "toolkit/data_control.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/data_grid.h"
#include "toolkit/prompts.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::index {
namespace {

constexpr int backspace = 8;

/// The document number of kind NA that stands for a cell that was cleared.
const QString deletedMark = u"**DELETED**"_s;

QString text(const char16_t* literal)
{
    return QString::fromUtf16(literal);
}

/// A failure of the file and not of the statement: the row's documents are not known, whereas a
/// statement that a tag breaks finds none, now and later.
bool isFileFailure(const Error& error)
{
    using namespace store::errors;
    constexpr std::array numbers{locked, diskError, diskFull, damagedFile, fileNotFound};
    return std::find(numbers.begin(), numbers.end(), error.number()) != numbers.end();
}

/// The order in which the window's lists are refreshed: datasheet, loop drawing, PID, purchase
/// order, requisition.
constexpr std::array<int, DocumentColumns::kinds> refreshOrder{0, 2, 1, 4, 3};

} // namespace

DocumentColumns::DocumentColumns(toolkit::DataGrid& grid,
                                 toolkit::DataControl& dbIndex,
                                 QObject* parent)
    : QObject(parent),
      m_grid(grid),
      m_dbIndex(dbIndex)
{
    for (std::size_t i = 0; i < documentKinds().size(); ++i) {
        const DocumentKind& kind = documentKinds()[i];
        auto* control = new toolkit::DataControl(this);
        control->setObjectName(text(kind.dataControl));
        control->setRecordSource(text(kind.recordSource));
        control->setReadOnly(true);
        auto* dropDown = new toolkit::DataDropDown(this);
        dropDown->setObjectName(text(kind.dropDown));
        dropDown->setDataControl(control);
        dropDown->setListField(u"docNo"_s);
        m_controls[i] = control;
        m_dropDowns[i] = dropDown;
    }
}

void DocumentColumns::attachDropDowns()
{
    for (const int i : refreshOrder) {
        const auto kind = static_cast<std::size_t>(i);
        m_grid.Columns(documentKinds()[kind].column).setDropDown(m_dropDowns[kind]);
    }
}

void DocumentColumns::refresh(const QString& databaseName)
{
    for (const int kind : refreshOrder)
        m_controls[static_cast<std::size_t>(kind)]->setDatabaseName(databaseName);
    for (const int kind : refreshOrder)
        m_controls[static_cast<std::size_t>(kind)]->Refresh();
}

void DocumentColumns::refreshKind(const QString& docType)
{
    for (std::size_t i = 0; i < documentKinds().size(); ++i) {
        if (text(documentKinds()[i].literal) == docType)
            m_controls[i]->Refresh();
    }
}

void DocumentColumns::loadRow(store::RowMark row)
{
    try {
        fillCells(row);
    } catch (const Error& error) {
        if (isFileFailure(error))
            m_grid.loadingFailed(row);
        m_grid.runAfterLoading([error] {
            toolkit::showFailure(toolkit::formB(tr("Error while loading document info."), error));
        });
    }
}

void DocumentColumns::fillCells(store::RowMark row)
{
    const QString tag = m_grid.Columns(column::tag).CellValue(row).text();
    for (const DocumentKind& kind : documentKinds()) {
        const QString literal = text(kind.literal);
        const auto found = m_dbIndex.Database().OpenRecordset(
            u"select docNo from qryDocXref where Tag = '"_s + tag + u"' and  (docType = '"_s
            + literal + u"' or context = '"_s + literal + u"');"_s);
        if (!found->Eof() && !found->Bof())
            m_grid.Columns(kind.column).setCellValue(row, found->Field(u"docNo"_s).text());
    }
}

void DocumentColumns::keyPress(int keyAscii)
{
    try {
        if (keyAscii != backspace || !isDocumentColumn(m_grid.Col()))
            return;
        for (std::size_t i = 0; i < documentKinds().size(); ++i) {
            if (documentKinds()[i].column != m_grid.Col())
                continue;
            m_controls[i]->Recordset().FindFirst(u"DocNo = '"_s + deletedMark + u"'"_s);
            m_dropDowns[i]->setValue(deletedMark);
        }
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while spreadsheet key press. "), error));
    }
}

void DocumentColumns::UpdateDocCrossRefs()
{
    try {
        const QString tag = m_grid.Columns(column::tag).Value().text();
        for (int kind = 0; kind < kinds; ++kind)
            rebuildKind(tag, kind);
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(
            tr("Error while updating document cross reference information."), error));
    }
}

void DocumentColumns::rebuildKind(const QString& tag, int kind)
{
    const DocumentKind& which = documentKinds()[static_cast<std::size_t>(kind)];
    const store::Database& database = m_dbIndex.Database();
    database.Execute(u"delete itemDocXRef.* from itemDocXRef where PlantItemNo = '"_s + tag
                     + u"' and   docNo in (select docNo from qryDocXref where "_s
                     + text(which.condition) + u"  and Tag = '"_s + tag + u"');"_s);
    const QString number = m_grid.Columns(which.column).Value().text();
    if (number.isEmpty() || number == deletedMark)
        return;
    database.Execute(u"insert into qryDocXref (Tag, DocNo, context) values ('"_s + tag + u"', '"_s
                     + number + text(which.insertTail));
}

} // namespace ostrand::index
