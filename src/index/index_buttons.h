// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QPushButton;

namespace ostrand::index {

/// The frame `FrmBelow` with the buttons of the main window, each in its place of the design.
class IndexButtons final : public QFrame
{
    Q_OBJECT

public:
    explicit IndexButtons(QWidget* parent);

    /// A button by its name, such as "cmdSave".
    QPushButton* button(const QString& name) const;
    /// The buttons' common height in pixels.
    int buttonHeight() const;
    /// The frame's width in pixels that shows all buttons.
    int neededWidth() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void placeButtons();
};

} // namespace ostrand::index
