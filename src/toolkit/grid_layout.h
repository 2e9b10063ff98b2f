// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

class QHeaderView;

namespace ostrand::toolkit {

/// Keeps the widths and the order of a grid's columns in the settings, from run to run.
class GridLayout final : public QObject
{
    Q_OBJECT

public:
    /// Reads what the settings hold under the key; values that do not fit the grid are ignored.
    GridLayout(QHeaderView& header, const QString& key);
    ~GridLayout() override;

private:
    void restore();
    void save();

    QHeaderView& m_header;
    QString m_group;
    QTimer m_saving;
};

} // namespace ostrand::toolkit
