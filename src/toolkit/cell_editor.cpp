// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/cell_editor.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {

namespace {

// Codes of keys that change a text without adding a character of their own.
constexpr int backspaceCode = 8;
constexpr int pasteCode = 22;
constexpr int cutCode = 24;

/// Whether a key takes away what stands at the cursor, or around it. Desktops have several.
bool deletes(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Delete || event.matches(QKeySequence::DeleteStartOfWord)
           || event.matches(QKeySequence::DeleteEndOfWord)
           || event.matches(QKeySequence::DeleteEndOfLine)
           || event.matches(QKeySequence::DeleteCompleteLine);
}

} // namespace

int characterOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool isAltGr = modifiers.testFlags(Qt::ControlModifier | Qt::AltModifier);
    const bool isCommand = (modifiers & (Qt::ControlModifier | Qt::AltModifier)) != 0 && !isAltGr;
    if (isCommand || modifiers.testFlag(Qt::MetaModifier) || event.text().isEmpty())
        return 0;
    const QChar character = event.text().at(0);
    return character.isPrint() ? character.unicode() : 0;
}

CellEditor::CellEditor(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    setAcceptDrops(false);
    setDragEnabled(false);
    setAccessibleName(tr("Cell"));
    connect(this, &QLineEdit::textEdited, this, &CellEditor::noteChange);
    hide();
}

void CellEditor::start(const QString& text)
{
    setText(text);
    m_changed = false;
}

void CellEditor::type(const QString& text)
{
    insert(text);
    noteChange();
}

void CellEditor::empty()
{
    clear();
    noteChange();
}

void CellEditor::noteChange()
{
    if (m_changed)
        return;
    m_changed = true;
    Q_EMIT changeStarted();
}

bool CellEditor::event(QEvent* event)
{
    // Every key is for the line while it is open; the window's menu has to wait.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isFunctionKey = key->key() >= Qt::Key_F1 && key->key() <= Qt::Key_F35;
        const bool isGridKey = key->key() == Qt::Key_F2 || key->key() == Qt::Key_F4;
        const bool isPlain = (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
        const bool dropsList = key->modifiers() == Qt::AltModifier && key->key() == Qt::Key_Down;
        if (isGridKey || dropsList || (isPlain && !isFunctionKey)) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            keyPressEvent(key);
            return true;
        }
    }
    return QLineEdit::event(event);
}

bool CellEditor::passes(int code)
{
    Q_EMIT keyTyped(code);
    return code != 0 && !isHidden();
}

/// True when the key was asked about and is not to reach the line.
bool CellEditor::isRefused(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Paste))
        return !passes(pasteCode);
    if (event.matches(QKeySequence::Cut))
        return !passes(cutCode);
    if (event.key() == Qt::Key_Backspace && !m_changed)
        return !passes(backspaceCode);
    if (deletes(event)) {
        bool handled = false;
        Q_EMIT deletePressed(handled);
        return handled || isHidden();
    }
    return false;
}

void CellEditor::keyPressEvent(QKeyEvent* event)
{
    bool handled = false;
    Q_EMIT gridKey(event, handled);
    if (handled) {
        event->accept();
        return;
    }
    if (characterOf(*event) != 0)
        typeKey(event);
    else if (!isRefused(*event))
        QLineEdit::keyPressEvent(event);
    event->accept();
}

void CellEditor::typeKey(QKeyEvent* event)
{
    int code = characterOf(*event);
    const int typed = code;
    Q_EMIT keyTyped(code);
    if (code == 0 || isHidden())
        return;
    if (code == typed)
        QLineEdit::keyPressEvent(event);
    else
        type(QString(QChar(code)));
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event)
{
    for (const QChar character : event->commitString()) {
        if (!passes(character.unicode()))
            return;
    }
    QLineEdit::inputMethodEvent(event);
}

/// The middle button pastes on some desktops.
void CellEditor::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::MiddleButton || passes(pasteCode))
        QLineEdit::mouseReleaseEvent(event);
}

void CellEditor::contextMenuEvent(QContextMenuEvent* event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    // These change the text as keys do, and ask as keys do.
    const auto guard = [&](const QString& name, int code, void (QLineEdit::*run)()) {
        if (auto* action = menu->findChild<QAction*>(name)) {
            action->disconnect();
            connect(action, &QAction::triggered, this, [this, code, run] {
                if (passes(code))
                    (this->*run)();
            });
        }
    };
    guard(u"edit-cut"_s, cutCode, &QLineEdit::cut);
    guard(u"edit-paste"_s, pasteCode, &QLineEdit::paste);
    guard(u"edit-delete"_s, backspaceCode, &QLineEdit::del);
    menu->exec(event->globalPos());
}

void CellEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        Q_EMIT left();
}

} // namespace ostrand::toolkit
