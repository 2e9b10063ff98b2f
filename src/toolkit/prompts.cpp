// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/prompts.h"

#include "toolkit/dialog_host.h"

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

QString chooseFile(const FileRequest& request)
{
    const auto chosen = promptHost().fileDialog(request);
    if (!chosen)
        throw store::Error(cancelledDialog,
                           QCoreApplication::translate("Prompts", "Cancel was selected."));
    return *chosen;
}

} // namespace ostrand::toolkit
