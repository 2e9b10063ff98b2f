// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/export.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/cell_text.h"
#include "pid/datasheet_run.h"
#include "pid/process_datasheet.h"
#include "store/quoting.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

QString words(const char* text)
{
    return QCoreApplication::translate("pid", text);
}

RunWords exportWords()
{
    return {
        .logFile = u"Export.log"_s,
        .databaseNotNamed = words("P&ID database path is not specified."),
        .folderNotNamed = words("Datasheet path not mentioned."),
        .databaseRowMissing = words("P&ID database path not found."),
        .folderMissing = words("Datasheet path '%1' not found."),
        .folderEmptyBox = words("No datasheets present in the 'datasheets' folder"),
        .folderEmpty = words("Datasheets not present in the 'datasheets' folder."),
        .tagWithoutFile = words("Datasheet path and filename not found for the tag '%1'"),
        .databaseMissing = words("Login info file 'data.txt' or database '%1' is missing or Login "
                                 "info is incorrect in 'data.txt'.."),
        .projectMissing = words("Database '%1' not found"),
        .fileMissing = words("Datasheet '%1.xls' not found '%2'"),
        .nameInvalid = words("Datasheet name '%1' is not valid for mapping"),
        .databaseGone = words("P&ID database '%1' not found."),
        .processing = words("Please wait processing datasheet :-  "),
        .mapSheetMissing = words(" P&ID database map' worksheet not found in '%1' datasheet."),
        .mapSheetBlank = words("'P&ID database map' worksheet is blank in '%1' Datasheet. "),
        .loginCancelled = words("Login cancelled by the user"),
        .failure = words("Error while updating the database"),
    };
}

class ExportRun final : public DatasheetRun
{
public:
    ExportRun()
        : DatasheetRun(exportWords())
    {
    }

private:
    void begin() override { app::mainWindow().dbIndex().Refresh(); }
    bool needsDatabaseFirst() const override { return true; }
    InstrumentKey keyOf(const QString& lookup) const override { return exportKey(lookup); }
    void prepare(const QString& path) override
    {
        m_refresh.ProcessDatasheetProc(application(), path, m_tag);
    }
    void beginRows() override
    {
        try {
            m_piece.reset(
                new store::Database::WriteScope(m_pid->writeScope())); // NOLINT(*-make-unique)
        } catch (const store::Error&) { // each change is then written by itself
            m_piece.reset();
        }
    }
    void endRows() override
    {
        if (const auto piece = std::exchange(m_piece, nullptr))
            piece->Commit();
    }

    Next processRow(const MapEntry& row) override
    {
        const auto found =
            m_pid->OpenRecordset(u"select "_s + store::quoted(row.field) + u"  from ["_s + row.table
                                 + u"]  WHERE FUNCTION_='"_s + m_key.function + u"' And TAG_ ='"_s
                                 + m_key.tag + u"'; "_s);
        const QString value = textOfCell(row);
        if (value.isEmpty()) {
            log(words("The cell '%1-%2' of the worksheet '%3' is blank")
                    .arg(row.column, row.row, row.worksheet));
            return Next::Row;
        }
        if (found->Eof()) {
            log(words("Column '%1' of the Table '%2'can not be updated because the Function '%3' "
                      "and tag '%4' combination is invalid")
                    .arg(row.field, row.table, m_key.function, m_key.tag));
            return Next::Row;
        }
        m_pid->ExecutePassThrough(u"UPDATE  ["_s + row.table + u"] SET "_s
                                  + store::quoted(row.field) + u" = '"_s
                                  + store::quoted(newValue(row, value)) + u"' WHERE FUNCTION_=  '"_s
                                  + m_key.function + u"' And TAG_ ='"_s + m_key.tag + u"';"_s);
        m_changed = true;
        return Next::Row;
    }

    /// The cell of a tag holds the whole of it, of which each of the two fields takes its piece.
    static QString newValue(const MapEntry& row, const QString& value)
    {
        if (row.field == u"TAG_"_s)
            return hyphenPiece(value, 1);
        if (row.field == u"FUNCTION_"_s)
            return hyphenPiece(value, 0);
        return value;
    }

    /// A cell that there is not counts as empty.
    QString textOfCell(const MapEntry& row)
    {
        QString text;
        withCell([&] { text = datasheets::textOf(m_file->value(row.worksheet, row.cell())); });
        return text;
    }

    std::optional<QString> rowFailure(const store::Error& error, const MapEntry& row) const override
    {
        using namespace store::errors;
        if (error.number() != tableNotFound && error.number() != syntaxInSelect
            && error.number() != missingParameter && error.number() != cannotExecuteSelect)
            return {};
        return words("Column name '%1' or table name '%2' may be incorrect in 'P&ID database map' "
                     "of the datasheet '%3'.")
            .arg(row.field, row.table, m_fileName);
    }

    Report report() const override
    {
        if (m_updated == 0)
            return {words("Database not modified"), words("Database not modified")};
        return {words("Database modified"), words("Database modified.")};
    }

    bool isPassedOver(const store::Error& error) const override
    {
        return error.number() == store::errors::objectClosed || DatasheetRun::isPassedOver(error);
    }

    std::optional<QString> endingLine(const store::Error& error) const override
    {
        if (error.number() == store::errors::odbcCallFailed)
            return words("P&ID Database name is incorrect.");
        return DatasheetRun::endingLine(error);
    }

    DatasheetRefresh m_refresh;
    std::unique_ptr<store::Database::WriteScope> m_piece;
};

} // namespace

void cmdExport()
{
    ExportRun().run();
}

} // namespace ostrand::pid
