// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The documents of a tag: how a row under edit is kept with its tag, its document and its context.
#include "documents/frmDocXref.h"
#include "documents/xref_columns.h"
#include "store/database.h"
#include "store/quoting.h"
#include "store/recordset.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::documents {

std::vector<toolkit::GridColumn> xrefColumns()
{
    const auto named = [](const QString& name, const QString& caption, int width) {
        return toolkit::GridColumn{.name = name, .field = name, .caption = caption, .width = width};
    };
    const auto text = [](const char* caption) {
        return QCoreApplication::translate("xref_columns", caption);
    };
    return {named(u"Tag"_s, text("Tag"), 1200),
            named(u"docNo"_s, text("Document No."), 2400),
            named(u"Title"_s, text("Title"), 3900),
            named(u"docType"_s, u"docType"_s, 1800),
            named(u"Path"_s, text("Path"), 1200),
            named(u"Filename"_s, text("Filename"), 1200),
            named(u"context"_s, u"context"_s, 1800)};
}

bool frmDocXref::ValidateDocRef() const
{
    try {
        return cell(xref::tag).text() == m_tag;
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while validating document cross reference data ."), error));
        return false;
    }
}

/// A tag other than the window's is refused; a document brings its own fields along.
void frmDocXref::acceptColumn(int column, bool& cancel)
{
    try {
        if (column == xref::tag)
            cancel = !ValidateDocRef();
        else if (column == xref::docNo)
            showPickedDocument();
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while column update in doc cross reference."), error));
    }
}

/// The row shows the fields of the document that it is turned to, so that it is never seen, nor
/// written, with those of another one. A number that is not in the register has none.
void frmDocXref::showPickedDocument()
{
    const QString number = store::quoted(cell(xref::docNo).text());
    const auto found = records().Database().OpenRecordset(
        u"select Title, docType, Path, Filename from qryDoc where docNo = '"_s + number + u"'"_s);
    if (found->Eof())
        return;
    constexpr std::array columns{xref::title, xref::docType, xref::path, xref::filename};
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
        grid().Columns(columns[static_cast<std::size_t>(i)]).setValue(found->Field(i));
}

void frmDocXref::takeTag()
{
    try {
        if (cell(xref::tag).text() != m_tag)
            grid().Columns(xref::tag).setValue(m_tag);
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while column insert in doc cross reference."), error));
    }
}

/// A new row is the window's tag's whatever was typed, and takes its document's kind for a context
/// unless it was given one.
void frmDocXref::beforeUpdate(bool& cancel)
{
    GridWindow::beforeUpdate(cancel);
    takeTag();
    try {
        if (m_savingContext || (isAdding() && cell(xref::context).isNull()))
            grid().Columns(xref::context).setValue(cell(xref::docType));
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(texts().writing, error));
    }
}

/// Without a document the tie would be stored, and be seen nowhere.
void frmDocXref::checkRecord(bool& save)
{
    if (!cell(xref::docNo).isNullOrEmpty())
        return;
    toolkit::showFailure(texts().emptyKey);
    save = false;
}

} // namespace ostrand::documents
