// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents/frmDocNew.h"

#include "app/help.h"
#include "app/state.h"
#include "documents/document_file.h"
#include "documents/frmDocXref.h"
#include "store/quoting.h"
#include "toolkit/data_control.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/record_failure.h"
#include "toolkit/twips.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::documents {
namespace {

// Twips.
constexpr int designWidth = 7200;
constexpr int gapAboveButtons = 120;

store::Value nullIfEmpty(const QString& text)
{
    return text.isEmpty() ? store::Value() : store::Value(text);
}

} // namespace

frmDocNew::frmDocNew(QWidget* parent)
    : QDialog(parent),
      m_dbDoc(named(new toolkit::DataControl(this), u"dbDoc"_s)),
      m_txtDocNo(named(new QLineEdit, u"txtDocNo"_s)),
      m_txtDocTitle(named(new QLineEdit, u"txtDocTitle"_s)),
      m_cmbDocType(named(new QComboBox, u"cmbDocType"_s)),
      m_txtDocPath(named(new QLineEdit, u"txtDocPath"_s)),
      m_txtDocFileName(named(new QLineEdit, u"txtDocFileName"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s)),
      m_cmdNewType(named(new QPushButton(tr("&New..")), u"cmdNewType"_s)),
      m_cmdMap(named(new QPushButton(tr("&Map File")), u"cmdMap"_s)),
      m_cmdSave(named(new QPushButton(tr("&Save")), u"cmdSave"_s)),
      m_cmdExit(named(new QPushButton(tr("&Exit")), u"cmdExit"_s))
{
    setObjectName(u"frmDocNew"_s);
    setModal(true);
    build();
    layOut();
    connectControls();
}

void frmDocNew::build()
{
    m_dbDoc->setRecordSource(u"qryDoc"_s);
    m_cmbDocType->setEditable(true);
    m_cmbDocType->setInsertPolicy(QComboBox::NoInsert);
    for (QPushButton* button : {m_cmdHelp, m_cmdNewType, m_cmdMap, m_cmdSave, m_cmdExit}) {
        // Enter in a field is not to store a document that is still being typed.
        button->setAutoDefault(false);
    }
}

void frmDocNew::layOut()
{
    auto* fields = new QGridLayout(this);
    const auto addField = [fields](int row, const QString& caption, QWidget* field) {
        auto* label = new QLabel(caption);
        label->setBuddy(field);
        fields->addWidget(label, row, 0);
        fields->addWidget(field, row, 1);
    };
    addField(0, tr("Doc No:"), m_txtDocNo);
    addField(1, tr("Title:"), m_txtDocTitle);
    addField(2, tr("Type:"), m_cmbDocType);
    fields->addWidget(m_cmdNewType, 2, 2);
    addField(3, tr("Path:"), m_txtDocPath);
    fields->addWidget(m_cmdMap, 3, 2);
    addField(4, tr("File Name:"), m_txtDocFileName);
    fields->setColumnStretch(1, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {m_cmdSave, m_cmdExit, m_cmdHelp})
        buttons->addWidget(button);
    fields->setRowMinimumHeight(5, px(gapAboveButtons, this));
    fields->setRowStretch(5, 1);
    fields->addLayout(buttons, 6, 0, 1, 3);
    QWidget* const order[] = {m_txtDocNo,
                              m_txtDocTitle,
                              m_cmbDocType,
                              m_cmdNewType,
                              m_txtDocPath,
                              m_txtDocFileName,
                              m_cmdMap,
                              m_cmdSave,
                              m_cmdExit,
                              m_cmdHelp};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    resize(px(designWidth, this), sizeHint().height());
    m_txtDocNo->setFocus();
}

void frmDocNew::connectControls()
{
    connect(m_cmdNewType, &QPushButton::clicked, this, &frmDocNew::cmdNewType);
    connect(m_cmdMap, &QPushButton::clicked, this, &frmDocNew::cmdMap);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmDocNew::cmdSave);
    connect(m_cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
    connect(m_dbDoc,
            &toolkit::DataControl::validate,
            this,
            [](toolkit::DataControl::Action action, bool&, const std::optional<Error>& pending) {
                toolkit::tellRecordFailure(action, pending);
            });
}

void frmDocNew::ShowInfo(const QString& tag)
{
    try {
        m_tag = tag;
        m_dbDoc->setDatabaseName(app::g_strIndexFile);
        setWindowTitle(tr("Reference Document to tag ") + tag);
        m_dbDoc->Refresh();
        PopulateDocTypeComboBox();
        exec();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while loading new document Window"), error));
    }
}

void frmDocNew::PopulateDocTypeComboBox()
{
    try {
        const auto kinds =
            m_dbDoc->Database().OpenRecordset(u"select docType from plDocType order by docType;"_s);
        const QString chosen = m_cmbDocType->currentText();
        m_cmbDocType->clear();
        for (; !kinds->Eof(); kinds->MoveNext())
            m_cmbDocType->addItem(kinds->Field(u"docType"_s).text());
        m_cmbDocType->setCurrentIndex(m_cmbDocType->findText(chosen, Qt::MatchFixedString));
        m_cmbDocType->setEditText(chosen);
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formB(tr("Error while loading document type in combo box. "), error));
    }
}

void frmDocNew::cmdNewType()
{
    try {
        const QString docType =
            toolkit::promptHost()
                .inputBox(tr("Input new document type"), tr("New Document Type"))
                .value_or(QString())
                .toUpper();
        if (docType.isEmpty()
            || !toolkit::askYesNo(tr("Are you sure you want to add document type ") + docType
                                  + u"?"_s))
            return;
        m_dbDoc->Database().Execute(u"insert into plDocType values ('"_s + docType + u"');"_s);
        PopulateDocTypeComboBox();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while creating new document type."), error));
    }
}

void frmDocNew::cmdMap()
{
    mapDocument([this] {
        pickDocumentFile([this](const QString& folder, const QString& name) {
            m_txtDocPath->setText(folder);
            m_txtDocFileName->setText(name);
        });
    });
}

void frmDocNew::cmdSave()
{
    try {
        storeDocument();
        if (!m_tag.isEmpty())
            tieToTag();
        if (g_frmDocXref)
            g_frmDocXref->RefreshData();
        accept();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while saving data ."), error));
    }
}

void frmDocNew::storeDocument()
{
    store::Recordset& documents = m_dbDoc->Recordset();
    documents.AddNew();
    documents.SetField(u"docNo"_s, m_txtDocNo->text());
    documents.SetField(u"Title"_s, nullIfEmpty(m_txtDocTitle->text()));
    documents.SetField(u"docType"_s, nullIfEmpty(m_cmbDocType->currentText()));
    documents.SetField(u"Path"_s, nullIfEmpty(m_txtDocPath->text()));
    documents.SetField(u"filename"_s, nullIfEmpty(m_txtDocFileName->text()));
    m_dbDoc->UpdateRecord();
}

void frmDocNew::tieToTag()
{
    m_dbDoc->Database().Execute(u"insert into itemDocXRef (docNo, PlantItemNo) values ('"_s
                                + store::quoted(m_txtDocNo->text()) + u"', '"_s + m_tag + u"');"_s);
}

} // namespace ostrand::documents
