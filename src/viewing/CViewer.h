// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/open_command.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace ostrand::viewing {

/// Shows files in whatever application the machine has for them. The program is started with the
/// file and is not waited for. Every operation shows its own failures.
class CViewer
{
    Q_DECLARE_TR_FUNCTIONS(CViewer)

public:
    /// Reads the default value of a key of the registry, under the hive that holds for all users.
    /// False when there is none.
    using ReadKey = std::function<bool(const QString& subKey, QString& value)>;

    /// Asks what the system has: its registry, or else its desktop entries.
    CViewer();
    /// Asks this registry.
    explicit CViewer(ReadKey registry);

    /// Shows a file by its folder and its name.
    void ViewFile(const QString& folder, const QString& fileName) const;
    /// Path of the program that opens files of this name's kind; "" for none.
    QString GetAssociatedApp(const QString& fileName) const;

    /// What follows the last dot, without it; "" where the dot stands first or last. A name with
    /// no dot comes back whole.
    static QString GetFileExtension(const QString& fileName);
    /// The program's path in a command line of the registry; "" where it names no program.
    static QString ParseApplicationFile(const QString& commandLine);
    /// The path with the token of the system's folder resolved.
    static QString ExpandSystemRoot(const QString& path);

private:
    std::optional<OpenCommand> associatedCommand(const QString& fileName,
                                                 const QString& path) const;
    std::optional<OpenCommand> registeredCommand(const QString& extension,
                                                 const QString& file) const;

    ReadKey m_registry;
};

/// The one viewer of the program.
extern std::unique_ptr<CViewer> g_objViewer;
/// The viewer for callers that cannot do without; raises 91 while there is none.
CViewer& viewer();

} // namespace ostrand::viewing
