// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace ostrand::viewing {

/// The tags that share a datasheet document. The datasheet of the one chosen is opened.
class frmViewDatasheets final : public QDialog
{
    Q_OBJECT

public:
    explicit frmViewDatasheets(QWidget* parent = nullptr);

    /// Fills the list for a document, and shows the window modally.
    void ShowInfo(const QString& docNo);
    /// Fills the list with the tags of the document that have a datasheet.
    void LoadFiles();
    /// Opens the selected tag's datasheet, and closes the window.
    void OpenDatasheet();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void connectControls();
    bool selectByKey(int key);

    QLabel* m_Label1;
    QListWidget* m_lstFromItems;
    QPushButton* m_cmdView;
    QPushButton* m_cmdExit;
    QPushButton* m_cmdHelp;
    QString m_docNo;
};

} // namespace ostrand::viewing
