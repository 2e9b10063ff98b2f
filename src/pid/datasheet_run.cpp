// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/datasheet_run.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "pid/connection.h"
#include "spreadsheet/host.h"
#include "spreadsheet/repaint.h"
#include "store/recordset.h"
#include "toolkit/busy_pointer.h"
#include "toolkit/data_control.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"

#include <QDir>
#include <QGuiApplication>

#include <utility>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;
using ostrand::spreadsheet::repaint;

namespace ostrand::pid {
namespace {

constexpr int statusPanel = 1;

/// A run that has nothing more to do.
struct RunEnds
{
    QString line;
};

bool holdsFile(const QString& folder)
{
    return !QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System).isEmpty();
}

} // namespace

DatasheetRun::DatasheetRun(RunWords words)
    : m_words(std::move(words))
{
}

DatasheetRun::~DatasheetRun() = default;

void DatasheetRun::run()
{
    const toolkit::BusyPointer hourglass;
    try {
        try {
            steps();
        } catch (const RunEnds& end) {
            m_log.line(end.line);
        }
        m_log.end();
    } catch (...) {
        failed(datasheets::currentFailure());
    }
    release();
}

void DatasheetRun::steps()
{
    toolkit::DataControl& index = mainWindow().dbIndex();
    if (index.EditMode() != store::EditMode::None)
        index.UpdateRecord();
    begin();
    m_log.open(m_words.logFile);
    mainWindow().setPanelText(
        statusPanel,
        QCoreApplication::translate("pid", "Please wait processing of datasheet begins"));
    repaint();
    readPaths();
    requireFiles();
    m_pid = checkPIDDatabaseFunction(m_pidPath);
    if (needsDatabaseFirst())
        requireDatabase();
    collectTags();
    requireDatabase();
    processTags();
    tellReport();
}

/// The two attributes are told by their places: the folder first.
void DatasheetRun::readPaths()
{
    const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    const auto rows = project.OpenRecordset(
        u"select attributeValue from qryProjectInfo where attributeName = "
        u"'DefaultP&IDDatabase'or attributeName = 'DefaultDatasheetFolder';"_s);
    const QString value = u"attributeValue"_s;
    if (rows->Eof())
        endWith(m_words.databaseNotNamed);
    if (rows->Field(value).isNullOrEmpty())
        endWith(m_words.folderNotNamed);
    m_folder = rows->Field(value).text();
    rows->MoveNext();
    if (rows->Eof())
        endWith(m_words.databaseRowMissing);
    m_pidPath = rows->Field(value).text();
}

void DatasheetRun::requireFiles()
{
    const QString folder = toolkit::filePath(m_folder);
    if (!QDir(folder).exists())
        endWith(m_words.folderMissing.arg(m_folder));
    if (!holdsFile(folder)) {
        show(m_words.folderEmptyBox, toolkit::BoxIcon::Exclamation);
        endWith(m_words.folderEmpty);
    }
}

void DatasheetRun::requireDatabase()
{
    if (m_pid)
        return;
    mainWindow().ableButton(false);
    endWith(m_words.databaseMissing.arg(m_pidPath));
}

void DatasheetRun::collectTags()
{
    if (!toolkit::fileExists(app::g_strIndexFile))
        return;
    std::optional<store::Database> project;
    try {
        project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    } catch (const store::Error&) {
        log(m_words.projectMissing.arg(app::g_strIndexFile));
        return;
    }
    const auto tags =
        project->OpenRecordset(u"SELECT TAG,DatasheetPath,DatasheetFileName FROM QRYINDEX"_s);
    for (; !tags->Eof(); tags->MoveNext()) {
        const QString tag = tags->Field(0).text();
        if (tag.isEmpty())
            continue;
        if (tags->Field(1).isNullOrEmpty() || tags->Field(2).isNullOrEmpty())
            log(m_words.tagWithoutFile.arg(tag));
        else
            m_tags << tag;
    }
}

void DatasheetRun::processTags()
{
    const auto total = static_cast<int>(m_tags.size());
    for (int i = 0; i < total; ++i) {
        mainWindow().setProgress(i, total);
        repaint();
        processTag(m_tags[i]);
    }
    mainWindow().setProgress(total, total);
    repaint();
}

void DatasheetRun::processTag(const QString& tag)
{
    m_tag = tag;
    m_fileName = runFileName(tag);
    m_lookup = lookupName(tag);
    const QString path = toolkit::joinPath(m_folder, m_fileName);
    if (!toolkit::fileExists(path)) {
        log(m_words.fileMissing.arg(tag, m_folder));
        return;
    }
    ++m_found;
    if (!m_fileName.contains(u'-')) {
        log(m_words.nameInvalid.arg(m_fileName));
        return;
    }
    m_key = keyOf(m_lookup);
    if (!toolkit::fileExists(m_pidPath))
        endWith(m_words.databaseGone.arg(m_pidPath));
    mainWindow().setPanelText(statusPanel, m_words.processing + m_fileName);
    repaint();
    try {
        prepare(path);
        processDatasheet(path);
    } catch (const RunEnds&) {
        throw;
    } catch (...) {
        fileFailed(datasheets::currentFailure());
    }
    m_file.reset();
}

void DatasheetRun::processDatasheet(const QString& path)
{
    m_changed = false;
    m_file = std::make_unique<DatasheetFile>(application(), path);
    spreadsheet::Worksheet* map = m_file->findSheet(mapSheetName);
    if (!map) {
        log(m_words.mapSheetMissing.arg(m_fileName));
        return;
    }
    const MapRows rows = readMapRows(*map);
    if (rows.empty())
        log(m_words.mapSheetBlank.arg(m_fileName));
    beginRows();
    processRows(rows);
    endRows();
    if (std::exchange(m_changed, false))
        ++m_updated;
    m_file->saveAndClose();
}

void DatasheetRun::processRows(const MapRows& rows)
{
    for (const MapEntry& row : rows) {
        try {
            if (hasSheet(row) && processRow(row) == Next::Datasheet)
                return;
        } catch (const RunEnds&) {
            throw;
        } catch (...) {
            const store::Error error = datasheets::currentFailure();
            const std::optional<QString> line = rowFailure(error, row);
            if (!line && !isPassedOver(error))
                throw;
            if (line)
                log(*line);
        }
    }
}

bool DatasheetRun::hasSheet(const MapEntry& row)
{
    if (m_file->findSheet(row.worksheet))
        return true;
    log(QCoreApplication::translate("pid",
                                    "Worksheet name '%1' for the cell '%2-%3'is incorrect in 'P&ID "
                                    "database map' worksheet of '%4' file.")
            .arg(row.worksheet, row.column, row.row, m_fileName));
    return false;
}

void DatasheetRun::withCell(const std::function<void()>& action)
{
    try {
        action();
    } catch (const spreadsheet::Error& error) {
        if (error.number() != spreadsheet::errors::applicationError)
            throw;
        log(QCoreApplication::translate("pid",
                                        "Datasheet '%1' cell information is incorrect in P&ID "
                                        "database map worksheet.")
                .arg(m_fileName));
    }
}

/// A workbook that another program has open, or took along when it ended, leaves the run to the
/// next one.
void DatasheetRun::fileFailed(const store::Error& error)
{
    using namespace spreadsheet::errors;
    const bool goesOn = error.number() == serverGone || error.number() == permissionDenied;
    try {
        endRows();
    } catch (const store::Error&) {
        if (goesOn)
            throw;
        // What came first is told.
    }
    m_file.reset();
    if (error.number() == serverGone)
        m_application.reset();
    if (!goesOn)
        throw error;
    log(QCoreApplication::translate("pid", "File ") + m_fileName
        + QCoreApplication::translate("pid", " has been opened during operation."));
}

void DatasheetRun::tellReport()
{
    if (m_found == 0) {
        show(QCoreApplication::translate("pid", "No datasheet present in the 'datasheets' folder"),
             toolkit::BoxIcon::Exclamation);
        log(m_words.folderEmpty);
        return;
    }
    const Report told = report();
    log(told.line);
    show(told.box, toolkit::BoxIcon::Information);
}

bool DatasheetRun::isPassedOver(const store::Error& error) const
{
    return error.number() == store::errors::objectNotSet;
}

std::optional<QString> DatasheetRun::endingLine(const store::Error& error) const
{
    if (error.number() == store::errors::loginCancelled)
        return m_words.loginCancelled;
    return {};
}

QString DatasheetRun::failureText(const store::Error& error) const
{
    return toolkit::formA(m_words.failure, error);
}

void DatasheetRun::failed(const store::Error& error)
{
    const std::optional<QString> line = endingLine(error);
    if (!line) {
        show(failureText(error), toolkit::BoxIcon::Exclamation);
        return;
    }
    try {
        log(*line);
        m_log.end();
    } catch (const store::Error& failure) {
        show(failureText(failure), toolkit::BoxIcon::Exclamation);
    }
}

void DatasheetRun::show(const QString& text, toolkit::BoxIcon icon)
{
    catchUp();
    mainWindow().setProgress(0, 0);
    mainWindow().showRecordCounter();
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    toolkit::promptHost().messageBox({.text = text, .icon = icon});
    QGuiApplication::restoreOverrideCursor();
}

void DatasheetRun::endWith(const QString& line)
{
    throw RunEnds{line};
}

spreadsheet::Application& DatasheetRun::application()
{
    if (!m_application)
        m_application = spreadsheet::CreateObject();
    return *m_application;
}

void DatasheetRun::release()
{
    m_file.reset();
    m_log.close();
    m_application.reset();
    m_pid.reset();
    catchUp();
    repaint();
    mainWindow().setProgress(0, 0);
    mainWindow().showRecordCounter();
}

} // namespace ostrand::pid
