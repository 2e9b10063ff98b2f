// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/frmLogin.h"

#include "app/help.h"
#include "app/program_files.h"
#include "app/state.h"
#include "store/database.h"
#include "toolkit/ansi_text.h"
#include "toolkit/named.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <QCloseEvent>
#include <QFile>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::app::g_blnPidLinked;
using ostrand::store::Error;
using ostrand::toolkit::named;

namespace ostrand::pid {
namespace {

const QString dataFileName = u"data.txt"_s;

/// The name of a path's file without its extension.
QString baseNameOf(const QString& path)
{
    const QString title = toolkit::fileTitle(path);
    const qsizetype point = title.lastIndexOf(u'.');
    return point < 0 ? title : title.left(point);
}

} // namespace

frmLogin::frmLogin(const QString& path, QWidget* parent)
    : QDialog(parent),
      m_txtServer(named(new QLineEdit, u"txtServer"_s)),
      m_txtUserName(named(new QLineEdit, u"txtUserName"_s)),
      m_txtPassword(named(new QLineEdit, u"txtPassword"_s)),
      m_CmdOk(named(new QPushButton(tr("&OK")), u"CmdOk"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s)),
      m_baseName(baseNameOf(path)),
      m_extension(toolkit::fileExtension(path))
{
    setObjectName(u"frmLogin"_s);
    setWindowTitle(tr("Enter Login Info For Database"));
    setModal(true);
    layOut();
    connectControls();
}

void frmLogin::layOut()
{
    auto* fields = new QFormLayout;
    for (const auto& [caption, field] : {std::pair{tr("Server Name"), m_txtServer},
                                         std::pair{tr("User Name:"), m_txtUserName},
                                         std::pair{tr("Password:"), m_txtPassword}}) {
        fields->addRow(caption, field);
        field->setAccessibleName(caption);
    }
    m_txtPassword->setEchoMode(QLineEdit::Password);
    m_CmdOk->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {m_CmdOk, m_cmdHelp, m_cmdCancel})
        buttons->addWidget(button);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addSpacing(fontMetrics().height());
    layout->addStretch();
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 56);
}

void frmLogin::connectControls()
{
    connect(m_CmdOk, &QPushButton::clicked, this, &frmLogin::CmdOk);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmLogin::cmdCancel);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
}

void frmLogin::ShowInfo()
{
    exec();
}

void frmLogin::closeEvent(QCloseEvent* event)
{
    event->accept();
}

void frmLogin::CmdOk()
{
    if (m_txtServer->text().isEmpty() || m_txtUserName->text().isEmpty()
        || m_txtPassword->text().isEmpty()) {
        m_txtUserName->setFocus();
        toolkit::showNotice(tr("One of the field is empty"));
        return;
    }
    hide();
    try {
        login();
    } catch (const Error& error) {
        if (error.number() == store::errors::permissionDenied) {
            toolkit::showFailure(tr("The file 'data.txt' is already exists") + u"\r\n"_s
                                 + tr(" and it is read only"));
        } else {
            toolkit::showFailure(tr("Login operation failed ") + u"\r\n"_s
                                 + QString::number(error.number()) + error.description());
        }
    }
    done(QDialog::Accepted);
}

void frmLogin::login()
{
    takeFields();
    const QString dataFile = app::writableProgramFile(dataFileName);
    try {
        connectDatabase(dataFile);
    } catch (const Error&) {
        // A login that fails says so by the link that is not there.
        g_blnPidLinked = false;
    }
}

void frmLogin::takeFields()
{
    m_userName = m_txtUserName->text();
    m_password = m_txtPassword->text();
    m_server = m_txtServer->text();
    m_extension = m_extension.toLower();
}

QString frmLogin::connectString() const
{
    if (m_extension == "mdf"_L1)
        return u"DRIVER={SQL SERVER};SERVER="_s + m_server + u";DSN=P&ID_SQL_SERVER;"_s;
    return u"DRIVER={Microsoft ODBC for Oracle};SERVER="_s + m_server + u";DATABASE="_s + m_baseName
           + u";UID="_s + m_userName + u";PWD="_s + m_password + u";DSN=;"_s;
}

void frmLogin::connectDatabase(const QString& dataFile)
{
    const store::Database database =
        store::DBEngine::OpenDatabase(u" "_s, 0, false, connectString());
    g_blnPidLinked = true;
    if (database.Name() != m_baseName) {
        g_blnPidLinked = false;
        toolkit::showNotice(tr("Please select the proper database."));
        return;
    }
    g_blnPidLinked = writeConnectString(database, dataFile);
}

/// False when the file could not be made anew.
bool frmLogin::writeConnectString(const store::Database& database, const QString& dataFile) const
{
    QFile::setPermissions(dataFile, QFile::ReadOwner | QFile::WriteOwner);
    QFile::remove(dataFile);
    QFile file(dataFile);
    // The line holds the password: it is the user's alone.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
        return false;
    const QString line = database.Connect() + u"\r\n"_s;
    const QByteArray bytes = toolkit::encodeAnsi(line).value_or(line.toUtf8());
    file.write(bytes);
    return true;
}

void frmLogin::cmdCancel()
{
    m_userName.clear();
    m_password.clear();
    m_server.clear();
    g_blnPidLinked = false;
    done(QDialog::Rejected);
}

} // namespace ostrand::pid
