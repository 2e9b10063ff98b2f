// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"

#include <QDialog>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QPushButton;

namespace ostrand::toolkit {

/// A modal window over the rows of one query: a grid with a row of buttons below it. This is what
/// all such windows do alike; a window adds its buttons, its texts and what it does differently.
class GridWindow : public QDialog
{
    Q_OBJECT

public:
    /// What a window tells. The first ones stand before the number and the words of an error.
    struct Texts
    {
        QString loading;  ///< of `RefreshData`, form B
        QString showing;  ///< of the window itself, form A
        QString sorting;  ///< form B
        QString saving;   ///< form A
        QString deleting; ///< form A
        QString writing;  ///< of the steps ahead of a row's write, form A
        QString checking; ///< of the look at one cell then, form A
        QString emptyKey; ///< why a row without a key was refused
        QString sameKey;  ///< why a row with a key that exists was refused
    };

    /// How a window is made.
    struct Design
    {
        QString name;
        QString caption;
        QString grid;
        QString gridCaption; ///< for assistive programs
        QString dataControl;
        QString query; ///< the record source; sorting selects from it
        std::vector<GridColumn> columns;
        QSize size; ///< twips
        Texts texts;
    };

    /// Reads the rows anew, in the order that they have.
    void RefreshData();
    /// Orders the rows by a column, ascending.
    void Sort(int intColumn);

public Q_SLOTS:
    /// Escape drops the row under edit first, and closes then.
    void reject() override;

protected:
    GridWindow(Design design, QWidget* parent);

    DataGrid& grid() const { return *m_grid; }
    DataControl& records() const { return *m_records; }
    const Texts& texts() const { return m_design.texts; }
    const QString& query() const { return m_design.query; }

    /// Adds a button behind the others.
    void addButton(const QString& name, const QString& caption, std::function<void()> handler);
    const std::vector<QPushButton*>& buttons() const { return m_buttons; }
    /// Stacks the grid and the buttons, which then follow the window's size.
    void layOut();

    /// Fills the window and shows it until it is closed.
    void showWindow();
    /// Writes the row under edit. Tells its failure, also that no row is under edit.
    void saveRecord();
    /// Writes the row under edit, if any. False where it is refused, which was told then.
    bool settleRow();
    /// Asks, and deletes the record in hand, or drops the row that is being added.
    void deleteRecord();

    /// The row under edit is a new one.
    bool isAdding() const;
    /// The user stands on a record, and not on the row for new ones.
    bool hasRecord() const;
    /// A value of the row in hand, as the grid shows it; Null with no data.
    store::Value cell(int column) const;
    /// A value of the record in hand, or of the row that is being added.
    QString textInHand(int column) const;
    /// True for a row without a key. A record that is gone from the file had one.
    bool keyIsEmpty() const;
    /// Makes empty cells of the row under edit Null, so that no empty texts are stored.
    void clearEmptyCells();

    void closeEvent(QCloseEvent* event) override;

    // ---- what sets a window apart
    /// The steps of `RefreshData`.
    virtual void load() = 0;
    virtual void loadFailed(const store::Error& error);
    virtual QString sortedSource(const QString& column) const;
    virtual QString deleteQuestion() const = 0;
    /// The user agreed to the deletion of the record in hand.
    virtual void aboutToDelete() {}
    virtual void beforeUpdate(bool& cancel);
    virtual void afterUpdate(bool& failed);
    /// May keep a row from being written, telling why: `save` is cleared then.
    virtual void checkRecord(bool& /*save*/) {}

private:
    void connectGrid();
    void
    validate(DataControl::Action action, bool& save, const std::optional<store::Error>& pending);
    bool clearIfEmpty(int column);
    void removeRecord();

    Design m_design;
    DataGrid* m_grid;
    DataControl* m_records;
    std::vector<QPushButton*> m_buttons;
};

} // namespace ostrand::toolkit
