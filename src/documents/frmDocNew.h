// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QString>

class QComboBox;
class QLineEdit;
class QPushButton;

namespace ostrand::toolkit {
class DataControl;
} // namespace ostrand::toolkit

namespace ostrand::documents {

/// Registers one new document and ties it to a tag.
class frmDocNew final : public QDialog
{
    Q_OBJECT

public:
    explicit frmDocNew(QWidget* parent = nullptr);

    /// Shows the window for a tag until it is closed.
    void ShowInfo(const QString& tag);
    /// Fills the list of kinds, in alphabetical order. What is chosen stays.
    void PopulateDocTypeComboBox();

private:
    void build();
    void layOut();
    void connectControls();

    void cmdNewType();
    void cmdMap();
    void cmdSave();
    void storeDocument();
    void tieToTag();

    QString m_tag;
    toolkit::DataControl* m_dbDoc;
    QLineEdit* m_txtDocNo;
    QLineEdit* m_txtDocTitle;
    QComboBox* m_cmbDocType;
    QLineEdit* m_txtDocPath;
    QLineEdit* m_txtDocFileName;
    QPushButton* m_cmdHelp;
    QPushButton* m_cmdNewType;
    QPushButton* m_cmdMap;
    QPushButton* m_cmdSave;
    QPushButton* m_cmdExit;
};

} // namespace ostrand::documents
