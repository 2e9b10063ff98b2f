// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/host.h"
#include "spreadsheet/libreoffice/office_profile.h"

#include <QProcess>

#include <atomic>

namespace ostrand::spreadsheet::libreoffice {

/// The running application with its private folder. It listens on a pipe whose name nobody can
/// guess. It ends with this object, and also when this program ends in any other way: a guard
/// process beside it holds one end of a pipe to this program and kills it when the other end goes.
class OfficeProcess
{
public:
    /// Starts it; raises 429 when there is no such program.
    explicit OfficeProcess(const HostSettings& settings);
    /// Ends whatever is left of it.
    ~OfficeProcess();
    OfficeProcess(const OfficeProcess&) = delete;
    OfficeProcess& operator=(const OfficeProcess&) = delete;

    /// The name of the pipe it listens on.
    QString pipe() const { return m_pipe; }
    /// The leader of its process group; 0 before it has started.
    qint64 group();
    bool isRunning() const;
    /// Waits until it has ended by itself; false when it takes longer. Milliseconds.
    bool waitForEnd(int timeout);
    /// Ends it at once, with all that it has open.
    void kill();
    /// The same from another thread, without waiting for its end.
    void killGroup() const;
    /// What it complained about when it ended.
    QString lastWords();

private:
    OfficeProfile m_profile;
    QString m_pipe;
    QProcess m_guard;
    std::atomic<qint64> m_group = 0;
};

} // namespace ostrand::spreadsheet::libreoffice
