// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace ostrand::pid {

/// The report of tags that were inserted under a number because the P&ID database holds them more
/// than once.
class frmDuplicate final : public QDialog
{
    Q_OBJECT

public:
    explicit frmDuplicate(QWidget* parent = nullptr);

    /// Asks for a file, puts the dates into the report, writes it there and closes. A file that
    /// exists is replaced. A failure is told, and the window stays with the report as it was.
    void saveReport();

private:
    void build();
    QString reportText() const;
    bool trySave(const QString& path);

    QLabel* m_picture;
    QLabel* m_label1;
    QLabel* m_label2;
    QPlainTextEdit* m_rtfDuplicate;
    QPushButton* m_cmdSave;
    QPushButton* m_cmdCancel;
};

} // namespace ostrand::pid
