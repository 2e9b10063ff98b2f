// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/recordset.h"
#include "store/value.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QString>
#include <QTableView>
#include <QTimer>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::toolkit {

class CellEditor;
class ColumnHeader;
class DataControl;
class DataDropDown;
class DataGridModel;
class GridLayout;
class GridReading;
class GridSelection;
class RecordHeader;
class RowBuffer;
class UnboundCells;
class ValueList;
enum class RecordMarker;

/// The button that a cell shows while it is the current one.
enum class CellButton { None, Arrow, Dots };

/// How a column is made. Measures are twips (1440 to the inch).
struct GridColumn
{
    enum class Style { Text, TextWithButton };

    QString name;    ///< by which sorting and captions address the column
    QString field;   ///< of the recordset; empty for an unbound column, which the window fills
    QString caption; ///< design caption
    Style style = Style::Text;
    int width = 3200;
};

/// An editable grid of the records of a data control, with the row under edit kept in a buffer
/// and written as one. Columns keep their number when the user moves them.
class DataGrid final : public QTableView
{
    Q_OBJECT

public:
    /// One column, addressed by number, as windows use it.
    class Column
    {
    public:
        QString Name() const;
        QString Caption() const;
        void setCaption(const QString& caption);
        /// The value in the current row, or in the row under edit; Null where there is none.
        store::Value Value() const;
        /// Changes the row under edit, and starts an edit where none is pending.
        void setValue(const store::Value& value);
        /// The value in the row of a bookmark.
        store::Value CellValue(store::RowMark mark) const;
        /// Fills an unbound cell of a row that is being loaded (see `rowLoaded`): no edit starts.
        void setCellValue(store::RowMark mark, const store::Value& value);
        /// Ties a drop-down list to the column.
        void setDropDown(DataDropDown* dropDown);

    private:
        friend class DataGrid;
        Column(DataGrid* grid, int number);
        DataGrid* m_grid;
        int m_number;
    };

    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    void setDataControl(DataControl* control);
    void addColumn(const GridColumn& column);
    int ColumnCount() const;
    Column Columns(int number);

    /// Number of the current column, -1 for none.
    int Col() const;
    /// The selected rows, in the order in which they were selected.
    std::vector<store::RowMark> SelBookmarks() const;
    /// Deletes the selected rows: per row `beforeDelete`, then the grid's question, then the
    /// data control's validation and the deletion.
    void DeleteSelected();

    void setAllowAddNew(bool allow);
    void setAllowDelete(bool allow);

    /// Writes the row under edit. True when none is pending afterwards.
    bool writeRow();
    /// Drops the row under edit.
    void cancelRow();
    bool rowPending() const;
    /// Why the row could not be written the last time; nothing when it was.
    const std::optional<store::Error>& writeFailure() const { return m_writeFailure; }
    /// Copies the text of the current cell to the clipboard.
    void copyCurrentCell() const;
    /// Marks the column that the records are sorted by, ascending; -1 marks none.
    void setSortMark(int column);
    CellButton cellButton(int column) const;
    /// True while the keyboard is with the grid or with its cell editor.
    bool isEditingHere() const;

    /// Runs `action` when the rows being loaded are shown: a `rowLoaded` handler must not open a
    /// window by itself, as it may run while the grid paints. Actions run one after the other,
    /// each when the one before has returned. A row that is loaded anew while it stays in display
    /// has none run again.
    void runAfterLoading(std::function<void()> action);
    /// To be called by a `rowLoaded` handler that could not read the file: the row does not count
    /// as loaded. It is tried again after a while, and is not edited before it is loaded, since
    /// its empty cells would be written as such.
    void loadingFailed(store::RowMark mark);

    /// Keeps column widths and order in the settings under this key; reads what is there. To be
    /// called when all columns are added.
    void keepLayoutAs(const QString& key);

Q_SIGNALS:
    void beforeUpdate(bool& cancel);
    /// `failed` tells whether the write failed; a handler that has told the user clears it, else
    /// the grid shows the engine's words.
    void afterUpdate(bool& failed);
    void beforeDelete(bool& cancel, bool& prompt);
    void beforeColumnUpdate(int column, bool& cancel);
    void headerClicked(int column);
    /// A row comes into display, or its edit starts: the handler fills its unbound cells with
    /// `setCellValue`.
    void rowLoaded(ostrand::store::RowMark mark);
    void cellButtonClicked(int column);
    /// A key with a character code (Backspace has 8); a handler that sets the code to 0 discards
    /// the key.
    void keyTyped(int& code);
    /// The Delete key on a cell, ahead of the grid's own handling; set `handled` to keep it off.
    void deletePressed(bool& handled);
    void dropDownPicked(int column);
    /// A mouse button went up over a cell or a row header, or the menu key asks for a menu, which
    /// counts as the right button. The position is one of the viewport.
    void mouseReleased(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint position);

public Q_SLOTS:
    /// Selects all records.
    void selectAll() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    // ---- making (data_grid.cpp)
    void makeHeaders();
    void makeEditor();
    void connectEditor();
    void fitToFont();
    /// Runs what an event asks for, and tells its failure: none may cross the event loop.
    void guarded(const std::function<void()>& action);
    void tellFailure(const store::Error& error);
    RecordMarker markerOf(int row) const;

    // ---- columns (grid_column.cpp)
    store::Value columnValue(int column);
    void setColumnValue(int column, const store::Value& value);
    store::Value cellValue(int column, store::RowMark mark);
    void setUnboundValue(int column, store::RowMark mark, const store::Value& value);
    void tieDropDown(int column, DataDropDown* dropDown);

    // ---- following the recordset (grid_records.cpp)
    void takeNewRecordset();
    void followRecordset();
    void followPosition(store::Recordset& records);
    void followEditMode();
    void takeInsertedRecord(int position);
    void takeRemovedRecord(int position);
    void takeChangedRecord(int position);
    void flushBuffer();
    void standOnCurrentRow();
    void leaveDeletedPlace();
    void readAllKeys();
    store::Recordset* recordset() const;

    // ---- unbound cells (grid_loading.cpp)
    void loadVisibleRows();
    void showRowsOf(store::Recordset& records);
    void loadRows(const std::vector<store::RowMark>& marks);
    void loadRow(store::RowMark mark);
    void emitRowLoaded(store::RowMark mark);
    std::optional<store::Error> loadForEdit(store::RowMark mark);
    bool isReadyToWrite();
    void loadRowOnDemand(store::RowMark mark);
    void pinRowUnderEdit();
    void runNextAction();

    // ---- the row under edit (grid_row.cpp)
    bool startRow();
    void dropBuffer();
    bool isUnchanged() const;
    void dropUnchangedRow();
    bool leaveRow();
    bool settleOtherRow();
    bool mayLeave(const QModelIndex& target);
    bool writePendingRow();
    bool storeRow();
    std::optional<store::Error> tryUpdate();
    void deleteRecord(store::RowMark mark);

    // ---- the cell under edit (grid_cell.cpp)
    bool isEditorOpen() const { return m_editorCell.isValid(); }
    bool openEditor();
    void placeEditor();
    bool acceptEditor();
    bool isNewText(const QModelIndex& cell, const QString& text) const;
    void discardEditor();
    bool acceptValue(int column, const store::Value& value);
    void typeOnCell(const QKeyEvent& event);
    void backspaceOnCell();
    void deleteOnCell();
    void editorKey(QKeyEvent* event, bool& handled);
    bool listKey(QKeyEvent* event);
    void pressButton();
    void dropList();
    void pick(const QString& value);

    // ---- moving (grid_input.cpp)
    bool commandKey(QKeyEvent* event);
    bool moveKey(QKeyEvent* event);
    bool leaveEditorKey(QKeyEvent* event);
    void tabKey(QKeyEvent* event);
    void enterKey(QKeyEvent* event);
    void stepRows(int rows);
    bool stepCells(int step);
    void goTo(int row, int place);
    int place() const;
    int pageRows() const;

    // ---- the mouse and selected rows (grid_mouse.cpp)
    void press(const QMouseEvent* event);
    void pressRow(int row, Qt::KeyboardModifiers modifiers);
    void selectRows(int from, int to, QItemSelectionModel::SelectionFlags command);
    void clearRows();

    QPointer<DataControl> m_control;
    std::unique_ptr<GridReading> m_reading;
    std::unique_ptr<RowBuffer> m_buffer;
    std::unique_ptr<UnboundCells> m_unbound; ///< of the rows in display
    std::unique_ptr<UnboundCells> m_guests;  ///< of rows asked for otherwise, until the next event
    DataGridModel* m_model = nullptr;
    GridSelection* m_selection = nullptr;
    ColumnHeader* m_columnHeader = nullptr;
    RecordHeader* m_recordHeader = nullptr;
    CellEditor* m_editor = nullptr;
    ValueList* m_list = nullptr;
    std::unique_ptr<GridLayout> m_layout;
    std::map<int, QPointer<DataDropDown>> m_dropDowns;
    QTimer m_keyReading;
    QTimer m_actionTimer;
    std::deque<std::function<void()>> m_actions; ///< to run after loading
    QPersistentModelIndex m_editorCell;
    QPersistentModelIndex m_pressedCell;
    std::optional<store::Error> m_writeFailure;
    int m_anchorRow = 0;
    double m_fontScale = 1.0;
    bool m_allowDelete = true;
    int m_loading = 0;
    bool m_starting = false;
    bool m_writing = false;
    bool m_following = false;
    bool m_deletedBefore = false;
    bool m_setByCode = false;
    bool m_acting = false;
};

} // namespace ostrand::toolkit
