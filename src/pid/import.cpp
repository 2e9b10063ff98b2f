// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/import.h"

#include "pid/cell_value_of.h"
#include "pid/datasheet_run.h"
#include "pid/update_main_db.h"
#include "store/quoting.h"
#include "store/recordset.h"
#include "toolkit/file_system.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

QString words(const char* text)
{
    return QCoreApplication::translate("pid", text);
}

RunWords importWords()
{
    return {
        .logFile = u"Import.log"_s,
        .databaseNotNamed = words("P&ID database path is not specified."),
        .folderNotNamed = words("Datasheet path not specified."),
        .databaseRowMissing = words("P&ID database path not found."),
        .folderMissing = words("Datasheet path '%1' not found"),
        .folderEmptyBox = words("No datasheet present in the 'datasheets' folder"),
        .folderEmpty = words("Datasheets not present in 'datasheets' folder."),
        .tagWithoutFile = words("Datasheet path and file name not found for the tag '%1'"),
        .databaseMissing = words("Login info file 'data.txt' or database '%1' is missing or "
                                 "'data.txt' contains incorrect login information ..."),
        .projectMissing = words("Database '%1' not found"),
        .fileMissing = words("Datasheet '%1.xls' not found in '%2'"),
        .nameInvalid = words("Datasheet name :- '%1' is not valid for mapping."),
        .databaseGone = words("P&ID database '%1' not found."),
        .processing = words("Please wait processing datasheet:-  "),
        .mapSheetMissing = words("'P&ID database map' worksheet not found in %1 datasheet."),
        .mapSheetBlank = words("'P&ID database map' worksheet is blank in '%1' datasheet."),
        .loginCancelled = words("Login is cancelled by the user."),
        .failure = words("Error while importing the database"),
    };
}

class ImportRun final : public DatasheetRun
{
public:
    ImportRun()
        : DatasheetRun(importWords())
    {
    }

private:
    bool needsDatabaseFirst() const override { return false; }
    InstrumentKey keyOf(const QString& lookup) const override { return importKey(lookup); }
    void beginRows() override { m_project.beginPiece(); }
    void endRows() override { m_project.endPiece(); }
    void catchUp() override { m_project.refresh(); }

    Next processRow(const MapEntry& row) override
    {
        const auto found = m_pid->OpenRecordset(
            u"select   "_s + store::quoted(row.field) + u" from ["_s + row.table
            + u"]where FUNCTION_=  '"_s + m_key.function + u"' And TAG_ ='"_s + m_key.tag + u"'"_s);
        if (found->Eof()) {
            log(words("Datasheet %1 is not valid for mapping").arg(m_fileName));
            return Next::Datasheet;
        }
        const store::Value value = found->Field(0);
        if (value.isNullOrEmpty()) {
            log(words("'%1' column of the table '%2' is blank for the file '%3'")
                    .arg(row.field, row.table, m_fileName));
            return Next::Row;
        }
        put(row, cellValueOf(*found, 0));
        m_changed = true;
        m_project.updateMainDB(row, value.text(), m_lookup, m_file->DatasheetType());
        return Next::Row;
    }

    /// A cell that there is not costs the datasheet its value, and the project keeps it.
    void put(const MapEntry& row, const spreadsheet::CellValue& value)
    {
        withCell([&] { m_file->put(row.worksheet, row.cell(), value); });
    }

    std::optional<QString> rowFailure(const store::Error& error, const MapEntry& row) const override
    {
        using namespace store::errors;
        if (error.number() != tableNotFound && error.number() != syntaxInSelect
            && error.number() != missingParameter)
            return {};
        return words("'%1-%2' cell of the worksheet '%3' in datasheet '%4' can not be updated due "
                     "to incorrect table or field name.")
            .arg(row.column, row.row, row.worksheet, m_fileName);
    }

    Report report() const override
    {
        if (m_updated == 0)
            return {words("No datasheets updated"), words("No datasheets updated....!!!")};
        const QString count = QString::number(m_updated);
        if (m_updated == 1)
            return {count + words(" Datasheet updated successfully"),
                    count + words(" datasheet updated successfully.")};
        return {count + words(" Datasheets updated successfully"),
                count + words(" Datasheets updated successfully.")};
    }

    QString failureText(const store::Error& error) const override
    {
        if (error.number() == toolkit::fileErrors::permissionDenied)
            return words("Log file is read only and it can ") + u"\r\n"_s
                   + words(" not be accessed for writing a log");
        if (error.number() == toolkit::fileErrors::pathNotFound)
            return words("Datasheet path not found");
        return DatasheetRun::failureText(error);
    }

    MainDbUpdate m_project;
};

} // namespace

void cmdImport()
{
    ImportRun().run();
}

} // namespace ostrand::pid
