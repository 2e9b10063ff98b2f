// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace ostrand::toolkit {
class DataControl;
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::index {

/// The life of a tag's record in the grid: the checks as its row is written, what is told when the
/// row is refused, its deletion, and its datasheet file on disk.
class TagEditing final : public QObject
{
    Q_OBJECT

public:
    /// What tag editing needs of its surroundings.
    struct Links
    {
        std::function<void()> UpdateDocCrossRefs;
        std::function<QString()> FolderDatasheets;
    };

    TagEditing(toolkit::DataGrid& grid,
               toolkit::DataControl& dbIndex,
               Links links,
               QObject* parent);

    /// The commands behind the buttons: each looks at the tag cell first.
    void cmdSave();
    void cmdDelete();

    /// Writes the pending edit, if there is one.
    void SaveTag();
    /// Asks, deletes the datasheet file and then the record.
    void DeleteTag();
    /// Deletes the datasheet file of the recordset's current record.
    void DeleteDatasheetFile();

    /// Ahead of a row's write. The row is written whatever happens here.
    void beforeUpdate();
    /// Behind a row's write: tells why it was refused, or stays on the row written.
    void afterUpdate(bool& failed);

private:
    bool CheckDuplicateTag();
    void UpdateDatasheetFile();
    void moveDatasheetFile(const QString& oldPath);
    void moveDatasheetFileBack();
    void dropNewTag();
    void updateTiedData();
    void clearEmptiedDatasheet();
    bool tagCellIsEmpty();
    QString tagCell();

    toolkit::DataGrid& m_grid;
    toolkit::DataControl& m_dbIndex;
    Links m_links;

    /// The datasheet file that the row being written took along.
    struct MovedFile
    {
        QString from;
        QString to;
        QString oldName;
    };
    std::optional<MovedFile> m_moved;
};

} // namespace ostrand::index
