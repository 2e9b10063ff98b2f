// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/logo_files.h"

#include "app/main_window.h"
#include "app/state.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {
namespace {

bool isForTemplates()
{
    return app::g_intLogoTarget == logoTarget::templates;
}

} // namespace

QString logoFolder()
{
    app::MainWindow& window = app::mainWindow();
    return isForTemplates() ? window.FolderTemplates() : window.FolderDatasheets();
}

QStringList logoFiles(const QString& folder)
{
    const auto words = [](const char* text) {
        return QCoreApplication::translate("logo_files", text);
    };
    const QFileInfo place(toolkit::filePath(folder));
    if (folder.isEmpty())
        throw store::Error(toolkit::fileErrors::pathNotFound, words("Path not found"));
    if (!place.isDir()) {
        throw store::Error(toolkit::fileErrors::pathNotFound,
                           words("Path not found: %1").arg(folder));
    }
    std::error_code unreadable;
    const std::filesystem::directory_iterator first(place.filesystemFilePath(), unreadable);
    if (unreadable)
        throw store::Error(toolkit::fileErrors::permissionDenied, words("Permission denied"));
    const QString ending = isForTemplates() ? u".xlt"_s : u".xls"_s;
    QStringList names =
        QDir(place.filePath()).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    names.removeIf([&ending](const QString& name) {
        return !name.endsWith(ending, Qt::CaseInsensitive) || name.startsWith(u"~$"_s);
    });
    return names;
}

} // namespace ostrand::datasheets
