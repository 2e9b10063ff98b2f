// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/connection.h"
#include "pid/populate_insert.h"
#include "pid/populate_lines.h"

#include <QDialog>

#include <functional>
#include <optional>

class QListView;
class QPushButton;

namespace ostrand::pid {

class PopulateModel;

/// The instruments of the P&ID database as lines, of which the chosen ones become tags.
class frmPopulate final : public QDialog
{
    Q_OBJECT

public:
    /// Opens a P&ID database; nothing where there is none. May raise `store::Error`.
    using Opener = std::function<std::optional<store::Database>(const QString& path)>;

    explicit frmPopulate(QString strPIDDatabase,
                         QWidget* parent = nullptr,
                         Opener open = openPidDatabase);

    /// Lists the instruments. False when the window is not to be shown: there are none, or a
    /// failure ended the loading. Failures that the user can do something about are told.
    bool load();
    /// Makes tags of the chosen lines, shows them in the index, reports those that were renamed,
    /// and closes. A failure is told, and the window stays.
    void insertChosen();

private:
    void build();
    void connectControls();
    PopulateLines readLines() const;
    std::vector<NewTag> chosenTags() const;
    std::optional<QString> tryInsert();

    QString m_strPIDDatabase;
    Opener m_open;
    std::vector<TagDetails> m_vTagDetails;
    PopulateModel* m_lines;
    QListView* m_lstPopulate;
    QPushButton* m_cmdOk;
    QPushButton* m_cmdCancel;
    QPushButton* m_cmdHelp;
};

} // namespace ostrand::pid
