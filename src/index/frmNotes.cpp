// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/frmNotes.h"

#include "app/help.h"
#include "store/error.h"
#include "toolkit/data_grid.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::index {
namespace {

constexpr int designWidth = 7200;
constexpr int designHeight = 4800;
constexpr int alreadyShown = 400;

} // namespace

frmNotes::frmNotes(toolkit::DataGrid& grid, QWidget* parent)
    : QDialog(parent),
      m_grid(grid),
      m_txtNotes(named(new QPlainTextEdit, u"txtNotes"_s)),
      m_CmdOk(named(new QPushButton(tr("&OK")), u"CmdOk"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s))
{
    setObjectName(u"frmNotes"_s);
    setWindowTitle(tr("Notes for tag....."));
    setModal(true);
    build();
    connectControls();
}

void frmNotes::build()
{
    m_txtNotes->setAccessibleName(tr("Remarks"));
    m_txtNotes->setTabChangesFocus(true);
    m_CmdOk->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_CmdOk);
    buttons->addWidget(m_cmdCancel);
    buttons->addWidget(m_cmdHelp);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_txtNotes, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_txtNotes->setFocus();
}

void frmNotes::connectControls()
{
    connect(m_CmdOk, &QPushButton::clicked, this, &frmNotes::accept);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
}

void frmNotes::ShowInfo(const QString& tag)
{
    try {
        if (isVisible())
            throw Error(alreadyShown, tr("The window is open already."));
        setWindowTitle(tr("Remarks for tag ") + tag);
        m_txtNotes->setPlainText(m_grid.Columns(m_grid.Col()).Value().text());
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while loading new document Window"), error));
        return;
    }
    exec();
}

/// With the line breaks that the database has. The document's own plain text would also lose the
/// difference between a blank and a blank that does not break.
QString frmNotes::typedText() const
{
    return m_txtNotes->document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u"\r\n"_s)
        .replace(QChar::LineSeparator, u"\r\n"_s);
}

void frmNotes::accept()
{
    try {
        toolkit::DataGrid::Column cell = m_grid.Columns(m_grid.Col());
        // A text that nobody changed keeps the line breaks that it came with.
        const store::Value text =
            m_txtNotes->document()->isModified() ? store::Value(typedText()) : cell.Value();
        cell.setValue(text);
        if (!m_grid.rowPending()) {
            throw Error(store::errors::noCurrentRecord,
                        tr("There is no record to take the notes."));
        }
        QDialog::accept();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while loading notes into index"), error));
    }
}

} // namespace ostrand::index
