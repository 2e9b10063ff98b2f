// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace ostrand::toolkit {

/// The line in which a cell is edited. Keys that concern the grid (Enter, Tab, Escape, moving to
/// other rows, dropping the list) go to the grid first.
class CellEditor final : public QLineEdit
{
    Q_OBJECT

public:
    explicit CellEditor(QWidget* parent);

    /// Shows a text that is not the user's.
    void start(const QString& text);
    /// Puts in what was typed on the cell while the line was not open yet, as the user's.
    void type(const QString& text);
    /// Empties the line, as the user's doing.
    void empty();
    /// True when the user changed the text since `start`.
    bool isChanged() const { return m_changed; }

Q_SIGNALS:
    /// The first change of the text by the user.
    void changeStarted();
    /// A key of the grid's; `handled` keeps it off the line.
    void gridKey(QKeyEvent* event, bool& handled);
    void keyTyped(int& code);
    void deletePressed(bool& handled);
    void left();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool passes(int code);
    bool isRefused(const QKeyEvent& event);
    void typeKey(QKeyEvent* event);
    void noteChange();

    bool m_changed = false;
};

/// The character code of a key as `keyTyped` tells it, 0 where a key has none.
int characterOf(const QKeyEvent& event);

} // namespace ostrand::toolkit
