// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help.h"

#include "app/help_desk.h"
#include "app/program.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace ostrand::app {

QString helpTopicManual()
{
    return u"ID_MANUAL"_s;
}

void ShowHelpTopic(QWidget* owner, const QString& topic, bool blnManual)
{
    const QString name = blnManual ? u"OstrandDatasheets.chm"_s : u"OstrandErrors.chm"_s;
    const QString file = toolkit::joinPath(installationFolder(), name);
    const QString title = blnManual
                              ? QCoreApplication::translate("help", "Ostrand Datasheets Help")
                              : QCoreApplication::translate("help", "Ostrand Datasheets Errors");
    if (!HelpDesk::of(owner).show(file, topic + u".htm"_s, title))
        tellMissingHelp();
}

void tellMissingHelp()
{
    toolkit::showFailure(
        QCoreApplication::translate("help", "Unable to launch HTML Help,") + u"\r\n"_s
        + QCoreApplication::translate("help", "or the topic you requested does not exist"));
}

void LaunchAutoUpdate()
{
    const QString program = toolkit::joinPath(installationFolder(), u"OstrandAutoUpdate.exe"_s);
    if (toolkit::fileExists(program)) {
        QProcess::startDetached(program, {u"DataSheets||"_s + updateVersion()});
        return;
    }
    toolkit::showFailure(
        QCoreApplication::translate("help", "Auto update is not available on this machine."));
    toolkit::promptHost().openAddress(
        u"https://www.ostrand.example/support_downloads.asp?varflag=Ostrand&varreturn=dl"_s);
}

} // namespace ostrand::app
