// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

namespace ostrand::viewing {

/// A box of choices over pages. What the user does to the pages does not change the choice: the
/// wheel and the keys that page are left to them.
class ChoiceBox : public QComboBox
{
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

Q_SIGNALS:
    /// The user is done with the box: he chose from its list, or went back with Esc. The arrow
    /// keys, which walk from choice to choice, leave him in it.
    void left();

protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    /// Drops what is typed. False where nothing is.
    virtual bool revert() { return false; }

private:
    bool m_isWalking = false;
};

} // namespace ostrand::viewing
