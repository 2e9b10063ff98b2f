// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/session_desk.h"

#include "spreadsheet/application.h"
#include "spreadsheet/host.h"
#include "spreadsheet/sheet_design.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

struct Place
{
    QStringView sheet;
    QStringView cell;
    QStringView field;
    QStringView table;
};

constexpr Place places[]{{u"DATASHEET", u"D11", u"Tag", u"index"},
                         {u"DATASHEET", u"D12", u"ServiceDescription", u"index"},
                         {u"DATASHEET", u"D13", u"Manufacturer", u"index"},
                         {u"DATASHEET", u"H5", u"contract", u"IndexTitleInfo"},
                         {u"DATASHEET", u"H6", u"REQUISITION", u"document"},
                         {u"DATASHEET", u"H7", u"PURCHASE ORDER", u"document"},
                         {u"NOTES", u"D11", u"Tag", u"index"},
                         {u"NOTES", u"B14", u"Remarks", u"index"},
                         {u"NOTES", u"B15", u"Location", u"index"}};

} // namespace

void SessionDesk::prepare()
{
    m_program = std::make_unique<IndexFixture>();
    m_program->project = m_program->emptyProject();
    const QDir scratch(path(QString()));
    scratch.mkdir(u"sheets"_s);
    scratch.mkdir(u"templates"_s);
    fillProject();
    makeWorkbook(path(u"templates/TEST.xlt"_s));
    m_program->open(project());
    m_program->goTo(tag);
}

void SessionDesk::clear()
{
    if (!m_program)
        return;
    m_program->prompts.whileOpen = {};
    m_program->prompts.answers.clear();
    m_program.reset();
}

void SessionDesk::fillProject() const
{
    const auto run = [this](const QString& statement) {
        ProgramFixture::execute(project(), statement);
    };
    for (const Place& place : places) {
        run(u"insert into Map (DatasheetType, Worksheet, object, Field, TableName) values ('"_s
            + type + u"', '"_s + place.sheet + u"', '"_s + place.cell + u"', '"_s + place.field
            + u"', '"_s + place.table + u"')"_s);
    }
    run(u"delete from DatasheetTypes"_s);
    run(u"insert into DatasheetTypes (ReportNum, DatasheetType, FileName) values (1, '"_s + type
        + u"', 'TEST.xlt')"_s);
    const auto attribute = [&run](const QString& name, const QString& value) {
        run(u"update qryProjectInfo set attributeValue = '"_s + value
            + u"' where attributeName = '"_s + name + u"'"_s);
    };
    attribute(u"contract"_s, u"C-7"_s);
    attribute(u"DefaultDatasheetFolder"_s, path(u"sheets"_s));
    attribute(u"DefaultTemplateFolder"_s, path(u"templates"_s));
    run(u"insert into [index] (PlantItemNo, ServiceDescription, Manufacturer, Remarks, Location) "
        u"values ('PT-1', 'Inlet pressure', 'Calder & Roe', 'none', 'FIELD')"_s);
    run(u"insert into [index] (PlantItemNo) values ('PT-2')"_s);
    m_program->addDocument(u"RQ-1"_s, u"REQUISITION"_s);
    m_program->addTie(tag, u"RQ-1"_s, u"REQUISITION"_s);
}

void SessionDesk::makeWorkbook(const QString& path, const QString& bookType)
{
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Add();
    book->Worksheets(1)->design().setName(front);
    book->AddSheet(notes);
    book->Worksheets(1)->design().setText(u"A1"_s, u"Made for a test"_s);
    if (!bookType.isNull())
        book->setCustomDocumentProperty(u"DatasheetType"_s, bookType);
    book->SaveAs(path,
                 path.endsWith(u".xlt"_s) ? spreadsheet::FileFormat::Template
                                          : spreadsheet::FileFormat::Workbook);
    book->Close(spreadsheet::SaveChanges::No);
}

QString SessionDesk::giveDatasheet(const QString& forTag, const QString& bookType)
{
    const QString file = path(u"sheets/"_s + forTag + u".xls"_s);
    makeWorkbook(file, bookType);
    m_program->goTo(forTag);
    store::Recordset& tags = m_program->tags();
    tags.Edit();
    tags.SetField(u"DatasheetPath"_s, path(u"sheets"_s));
    tags.SetField(u"DatasheetFileName"_s, QString(forTag + u".xls"_s));
    tags.Update();
    return file;
}

spreadsheet::CellValue
SessionDesk::storedValue(const QString& path, const QString& sheet, const QString& cell)
{
    const auto application = spreadsheet::CreateObject();
    const auto book = application->Open(path);
    const spreadsheet::CellValue value = book->Worksheets(sheet)->Range(cell)->Value();
    book->Close(spreadsheet::SaveChanges::No);
    return value;
}

void SessionDesk::openDatasheet(const QString& forTag)
{
    giveDatasheet(forTag);
    m_program->press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(isWindowVisible(), 20000);
    settle();
}

bool SessionDesk::isMainWindowFree()
{
    const auto free = [this](const QString& name) {
        return m_program->window.findChild<QWidget*>(name)->isEnabled();
    };
    const auto offered = [this](const QString& name) {
        return m_program->window.findChild<QAction*>(name)->isEnabled();
    };
    return free(u"GridIndex"_s) && free(u"cmdDatasheet"_s) && free(u"cmdSave"_s)
           && free(u"cmdDelete"_s) && free(u"cmdRefresh"_s) && free(u"cmdTag"_s)
           && free(u"mnuEdit"_s) && free(u"mnuReport"_s) && free(u"mnuDoc"_s)
           && offered(u"mnuFileNew"_s) && offered(u"mnuFileOpen"_s);
}

} // namespace ostrand::tests
