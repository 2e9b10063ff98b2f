// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace ostrand::store {
class Database;
} // namespace ostrand::store

namespace ostrand::pid {

/// Asks for server, user and password, and tries the login to a P&ID database with them. What the
/// driver made of them is left in the file `data.txt`.
class frmLogin final : public QDialog
{
    Q_OBJECT

public:
    /// `path` is the value of the project's P&ID attribute.
    explicit frmLogin(const QString& path, QWidget* parent = nullptr);

    /// Shows the window until it is closed.
    void ShowInfo();

public Q_SLOTS:
    /// Escape cancels.
    void reject() override { cmdCancel(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void connectControls();

    void CmdOk();
    void login();
    void connectDatabase(const QString& dataFile);
    void cmdCancel();
    void takeFields();
    QString connectString() const;
    bool writeConnectString(const store::Database& database, const QString& dataFile) const;

    QLineEdit* m_txtServer;
    QLineEdit* m_txtUserName;
    QLineEdit* m_txtPassword;
    QPushButton* m_CmdOk;
    QPushButton* m_cmdHelp;
    QPushButton* m_cmdCancel;

    QString m_baseName;
    QString m_extension;
    QString m_userName;
    QString m_password;
    QString m_server;
};

} // namespace ostrand::pid
