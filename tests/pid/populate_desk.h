// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/frmPopulate.h"
#include "support/index_fixture.h"

#include <QStringList>

#include <functional>
#include <optional>

namespace ostrand::tests {

/// The program with a project that names a P&ID database, and its user at the Populate command.
class PopulateDesk : public IndexFixture
{
public:
    using Act = std::function<void(pid::frmPopulate&)>;

    PopulateDesk();

    /// Names the P&ID database in the project; nothing sets the attribute to Null.
    void name(const std::optional<QString>& pidDatabase) const;

    /// Gives the command. `act` is what the user does in the window that appears; where it is then
    /// still open he cancels it. False when no window appeared.
    bool populate(const Act& act);
    /// The lines that the window lists; nothing when none appeared.
    std::optional<QStringList> lines();
    /// Chooses lines and presses the button.
    bool insert(const QStringList& lines);

    /// The same steps with the window up.
    static QStringList shownLines(const pid::frmPopulate& window);
    static void select(const pid::frmPopulate& window, const QStringList& lines);
    static void click(const QWidget& window, const QString& button);
    /// Presses the button that inserts. A report that opens is kept in `reports` and closed.
    void confirm(const pid::frmPopulate& window);

    /// The tags of the index, in order, and the service of one.
    QStringList storedTags() const;
    QString storedService(const QString& tag) const;
    QStringList gridTags();

    QStringList reports; ///< what the report windows showed
};

} // namespace ostrand::tests
