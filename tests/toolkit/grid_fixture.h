// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/scratch_database.h"
#include "support/scripted_prompts.h"
#include "toolkit/data_control.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/data_grid.h"

#include <QLineEdit>
#include <QWidget>

#include <vector>

namespace ostrand::tests {

/// A window with a grid of instruments: tag, service, document (unbound, with a list) and size
/// (with a button), on a file with a number of them.
class GridFixture
{
public:
    enum Column { Tag, Service, Doc, Size };

    explicit GridFixture(int rows = 5);
    ~GridFixture();

    void show();
    /// The widget that has the keyboard.
    static QWidget* focus();
    QLineEdit* editor() const;
    bool isEditing() const;
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;
    void click(int row,
               int column,
               Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickButton();
    void clickRowHeader(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void goTo(int row, int column);

    QString shown(int row, int column) const;
    int row() const { return grid.currentIndex().row(); }
    int rows() const { return grid.model()->rowCount(); }
    store::Recordset& records() const { return control.Recordset(); }
    store::Value field(const char* name) const { return records().Field(QLatin1String(name)); }
    /// One value as another reader of the file sees it.
    QString stored(const QString& sql) const;

    ScratchDatabase file;
    toolkit::DataControl control;
    toolkit::DataControl papers;
    toolkit::DataDropDown list;
    QWidget window;
    toolkit::DataGrid& grid;
    ScriptedPrompts& prompts;
    std::vector<qint64> loaded; ///< keys of the rows that `rowLoaded` told
};

} // namespace ostrand::tests
