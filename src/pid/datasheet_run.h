// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/datasheet_file.h"
#include "pid/map_sheet.h"
#include "pid/run_log.h"
#include "pid/tag_names.h"
#include "store/database.h"
#include "toolkit/prompts.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace ostrand::pid {

/// The words in which the two runs differ. %1, %2 ... stand for what a line is about.
struct RunWords
{
    QString logFile;
    QString databaseNotNamed;
    QString folderNotNamed;
    QString databaseRowMissing;
    QString folderMissing; ///< %1 folder
    QString folderEmptyBox;
    QString folderEmpty;
    QString tagWithoutFile;  ///< %1 tag
    QString databaseMissing; ///< %1 P&ID database
    QString projectMissing;  ///< %1 project
    QString fileMissing;     ///< %1 tag, %2 folder
    QString nameInvalid;     ///< %1 file
    QString databaseGone;    ///< %1 P&ID database
    QString processing;      ///< in the status bar, before the file's name
    QString mapSheetMissing; ///< %1 file
    QString mapSheetBlank;   ///< %1 file
    QString loginCancelled;
    QString failure;
};

/// A run over the datasheets of all tags: opens each tag's workbook in one hidden application,
/// walks its map sheet, keeps a log, and ends with one message. What it does with a row of the map
/// is the matter of the derived runs.
class DatasheetRun
{
public:
    explicit DatasheetRun(RunWords words);
    virtual ~DatasheetRun();
    DatasheetRun(const DatasheetRun&) = delete;
    DatasheetRun& operator=(const DatasheetRun&) = delete;

    /// Shows its own failures.
    void run();

protected:
    enum class Next { Row, Datasheet };
    struct Report
    {
        QString box;
        QString line;
    };

    /// Before anything is read, with no edit pending.
    virtual void begin() {}
    /// Whether the P&ID database must be open before the tags are collected.
    virtual bool needsDatabaseFirst() const = 0;
    virtual InstrumentKey keyOf(const QString& lookup) const = 0;
    /// The file is there and is about to be opened.
    virtual void prepare(const QString& /*path*/) {}
    virtual void beginRows() {}
    /// The row's worksheet is there.
    virtual Next processRow(const MapEntry& row) = 0;
    virtual void endRows() {}
    /// A row's failure that lets the run go on with the next row: its log line, or nothing.
    virtual std::optional<QString> rowFailure(const store::Error& error,
                                              const MapEntry& row) const = 0;
    virtual Report report() const = 0;
    /// A row's failure that nobody hears of.
    virtual bool isPassedOver(const store::Error& error) const;
    /// The log line of a failure that ends the run like any other end; nothing for one that ends
    /// it with a box, whose text is the next.
    virtual std::optional<QString> endingLine(const store::Error& error) const;
    virtual QString failureText(const store::Error& error) const;
    /// What was put off while nobody looked.
    virtual void catchUp() {}

    void log(const QString& line) { m_log.line(line); }
    /// Runs an action on a row's cell; a cell that there is not is told in the log.
    void withCell(const std::function<void()>& action);
    /// A box over the main window as it is between runs.
    void show(const QString& text, toolkit::BoxIcon icon);
    /// Ends the run with a line in the log.
    [[noreturn]] static void endWith(const QString& line);

    // The run.
    QString m_folder;
    QString m_pidPath;
    std::optional<store::Database> m_pid;
    int m_found = 0;
    int m_updated = 0;

    // The datasheet under way.
    QString m_tag;
    QString m_fileName;
    QString m_lookup;
    InstrumentKey m_key;
    std::unique_ptr<DatasheetFile> m_file;
    bool m_changed = false;

    spreadsheet::Application& application();

private:
    void steps();
    void readPaths();
    void requireFiles();
    void requireDatabase();
    void collectTags();
    void processTags();
    void processTag(const QString& tag);
    void processDatasheet(const QString& path);
    void processRows(const MapRows& rows);
    bool hasSheet(const MapEntry& row);
    void fileFailed(const store::Error& error);
    void tellReport();
    void failed(const store::Error& error);
    void release();

    RunWords m_words;
    RunLog m_log;
    QStringList m_tags;
    std::shared_ptr<spreadsheet::Application> m_application;
};

} // namespace ostrand::pid
