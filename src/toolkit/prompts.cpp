// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/prompts.h"

#include "toolkit/dialog_host.h"
#include "toolkit/file_system.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {
namespace {

std::unique_ptr<PromptHost>& currentHost()
{
    static std::unique_ptr<PromptHost> host = std::make_unique<DialogHost>();
    return host;
}

} // namespace

QString programTitle()
{
    return u"Ostrand Instrument Datasheets"_s;
}

PromptHost& promptHost()
{
    return *currentHost();
}

std::unique_ptr<PromptHost> setPromptHost(std::unique_ptr<PromptHost> host)
{
    if (!host)
        host = std::make_unique<DialogHost>();
    return std::exchange(currentHost(), std::move(host));
}

void showFailure(const QString& text)
{
    promptHost().messageBox({.text = text});
}

void showNotice(const QString& text)
{
    promptHost().messageBox({.text = text, .icon = BoxIcon::Information});
}

bool askYesNo(const QString& text)
{
    const Box box{.text = text, .icon = BoxIcon::Question, .buttons = BoxButtons::YesNo};
    return promptHost().messageBox(box) == Answer::Yes;
}

QString formA(const QString& text, const store::Error& error)
{
    return text + u"\r\n"_s + QString::number(error.number()) + u" : "_s + error.description();
}

QString formB(const QString& text, const store::Error& error)
{
    return text + u"\r\nError : "_s + QString::number(error.number()) + u". "_s
           + error.description();
}

QString procedureFailure(const store::Error& error, const QString& procedure, const QString& window)
{
    return QCoreApplication::translate("prompts", "Error ") + QString::number(error.number())
           + u" ("_s + error.description()
           + QCoreApplication::translate("prompts", ") in procedure ") + procedure
           + QCoreApplication::translate("prompts", " of Form ") + window;
}

QString chooseFile(const FileRequest& request)
{
    const auto chosen = promptHost().fileDialog(request);
    if (!chosen)
        throw store::Error(cancelledDialog,
                           QCoreApplication::translate("Prompts", "Cancel was selected."));
    return *chosen;
}

QString chooseFileIfAny(const FileRequest& request)
{
    QString chosen = promptHost().fileDialog(request).value_or(QString());
    return fileExists(chosen) ? chosen : QString();
}

} // namespace ostrand::toolkit
