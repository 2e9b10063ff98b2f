// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/host.h"

#include "spreadsheet/host_module.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet {
namespace {

struct State
{
    HostSettings settings;
    ApplicationFactory factory;
    Host* host = nullptr; ///< of the module, once it is loaded
};

State& state()
{
    static State the;
    return the;
}

Host& loadHost()
{
    State& now = state();
    if (now.host)
        return *now.host;
    const QString folder = now.settings.folder.isEmpty() ? QCoreApplication::applicationDirPath()
                                                         : now.settings.folder;
    QLibrary module(QDir(folder).filePath(u"ostrand-libreoffice"_s));
    // Its threads and static objects live until the process ends.
    module.setLoadHints(QLibrary::PreventUnloadHint);
    const auto function = reinterpret_cast<HostFunction>(module.resolve(hostFunction));
    if (!function) {
        throw Error(errors::cannotCreateObject,
                    QCoreApplication::translate("spreadsheet",
                                                "The spreadsheet application LibreOffice Calc "
                                                "can't be used. Is it installed? (%1)")
                        .arg(module.errorString()));
    }
    now.host = function();
    return *now.host;
}

} // namespace

std::shared_ptr<Application> CreateObject()
{
    return state().factory ? state().factory() : CreateHostObject();
}

std::shared_ptr<Application> CreateHostObject()
{
    return loadHost().CreateObject(state().settings);
}

void setHostSettings(const HostSettings& settings)
{
    state().settings = settings;
}

void endHost()
{
    if (state().host)
        state().host->end();
}

qint64 hostProcess()
{
    return state().host ? state().host->process() : 0;
}

void setApplicationFactory(ApplicationFactory factory)
{
    state().factory = std::move(factory);
}

} // namespace ostrand::spreadsheet
