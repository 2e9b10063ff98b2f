// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/CViewer.h"

#include "app/CRegHndlr.h"
#include "app/state.h"
#include "store/error.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "viewing/desktop_association.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::formB;

namespace ostrand::viewing {

std::unique_ptr<CViewer> g_objViewer;

CViewer& viewer()
{
    if (!g_objViewer)
        throw Error(store::errors::objectNotSet, u"Object variable not set"_s);
    return *g_objViewer;
}

namespace {

constexpr int noProgramInLine = 22222;

/// The registry of this system; none where it has none.
CViewer::ReadKey systemRegistry()
{
#ifdef Q_OS_WIN
    return [](const QString& subKey, QString& value) {
        return app::regHndlr().GetKeyValue(u"HKEY_LOCAL_MACHINE"_s, subKey, QString(), value);
    };
#else
    return {};
#endif
}

/// Starts a program that goes on by itself, with its window in front.
void start(const OpenCommand& command)
{
    if (!toolkit::fileExists(command.program))
        throw Error(toolkit::fileErrors::fileNotFound, u"File not found"_s);
    QProcess process;
    process.setProgram(command.program);
    process.setArguments(command.arguments);
    process.setWorkingDirectory(command.folder);
    process.setStandardInputFile(QProcess::nullDevice());
    if (!process.startDetached())
        throw Error(store::errors::invalidCall, process.errorString());
}

/// The system's own folder.
QString windowsFolder()
{
    QString folder = qEnvironmentVariable("SystemRoot");
    if (folder.isEmpty()) {
        throw Error(toolkit::fileErrors::pathNotFound,
                    QCoreApplication::translate("CViewer", "This system has no such folder."));
    }
    return folder;
}

} // namespace

CViewer::CViewer()
    : CViewer(systemRegistry())
{
}

CViewer::CViewer(ReadKey registry)
    : m_registry(std::move(registry))
{
}

void CViewer::ViewFile(const QString& folder, const QString& fileName) const
{
    try {
        if (folder.isEmpty() || fileName.isEmpty()) {
            toolkit::showNotice(tr("File path or file name is missing!"));
            return;
        }
        const QString path = toolkit::joinPath(folder, fileName);
        if (!toolkit::fileExists(path)) {
            toolkit::showNotice(tr("File has been moved or deleted."));
            return;
        }
        if (const auto command = associatedCommand(fileName, path))
            start(*command);
        else
            toolkit::showNotice(tr("Could not find application to open file ") + fileName);
    } catch (const Error& error) {
        toolkit::showFailure(formB(tr("Error while viewing document. "), error));
    }
}

QString CViewer::GetAssociatedApp(const QString& fileName) const
{
    const auto command = associatedCommand(fileName, fileName);
    return command ? command->program : QString();
}

/// How the file is opened, by the application that its name's ending tells.
std::optional<OpenCommand> CViewer::associatedCommand(const QString& fileName,
                                                      const QString& path) const
{
    try {
        if (!app::g_objRegHndlr)
            app::g_objRegHndlr = std::make_unique<app::CRegHndlr>();
        const QString extension = GetFileExtension(fileName);
        if (extension.isEmpty()) {
            toolkit::showNotice(tr("File extension is missing for file ") + fileName);
            return std::nullopt;
        }
        // A path that begins with a slash cannot be taken for an option.
        const QString file = QFileInfo(toolkit::filePath(path)).absoluteFilePath();
        if (m_registry)
            return registeredCommand(extension, file);
        // A name without a dot has no ending, whatever such names may mean elsewhere.
        return fileName.contains(u'.') ? desktopCommand(file) : std::nullopt;
    } catch (const Error& error) {
        toolkit::showFailure(formB(tr("Error while loading file handler form. "), error));
        return std::nullopt;
    }
}

std::optional<OpenCommand> CViewer::registeredCommand(const QString& extension,
                                                      const QString& file) const
{
    const QString classes = u"SOFTWARE\\Classes\\"_s;
    QString type;
    QString line;
    if (!m_registry(classes + u'.' + extension, type)
        || !m_registry(classes + type + u"\\shell\\open\\command"_s, line))
        return std::nullopt;
    const QString program = ParseApplicationFile(line);
    if (program.isEmpty())
        return std::nullopt;
    return OpenCommand{program, {QDir::toNativeSeparators(file)}, QString()};
}

QString CViewer::GetFileExtension(const QString& fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (dot == 0 || dot == fileName.size() - 1)
        return {};
    return fileName.mid(dot + 1);
}

QString CViewer::ParseApplicationFile(const QString& commandLine)
{
    try {
        const qsizetype dot = commandLine.indexOf(u".EXE"_s, 0, Qt::CaseInsensitive);
        if (dot < 0) {
            throw Error(
                noProgramInLine,
                tr("Error while trying to parse application file, could not find '.EXE' string."));
        }
        const qsizetype quote = commandLine.lastIndexOf(u'"', dot);
        return ExpandSystemRoot(commandLine.mid(quote + 1, dot - quote) + u"exe"_s);
    } catch (const Error& error) {
        toolkit::showFailure(formB(tr("Error while parsing application file. "), error));
        return {};
    }
}

QString CViewer::ExpandSystemRoot(const QString& path)
{
    const QString token = u"%SystemRoot%"_s;
    try {
        if (!path.contains(token))
            return path;
        return windowsFolder() + path.mid(token.size());
    } catch (const Error& error) {
        toolkit::showFailure(formB(tr("Error checking for application file alias. "), error));
        return path;
    }
}

} // namespace ostrand::viewing
