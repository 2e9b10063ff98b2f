// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"

#include <QString>

#include <functional>
#include <memory>

namespace ostrand::spreadsheet {

/// How the spreadsheet application is started. Times are milliseconds.
struct HostSettings
{
    QString folder = {};       ///< of the module that talks to it; "" for the program's own folder
    QString program = {};      ///< its start command; "" for the one that was found at build time
    int startTimeout = 60000;  ///< for the first answer
    int answerTimeout = 60000; ///< for any other answer; then it is ended
    bool headless = false;     ///< it never shows a window
};

/// Makes a link of our own to the spreadsheet application, which is started when it does not run
/// yet. It never uses an application that the user has open. Raises 429 when the application is
/// not installed or does not start.
std::shared_ptr<Application> CreateObject();

/// Settings for the next start.
void setHostSettings(const HostSettings& settings);

/// Ends the application if it was started, and removes its private folder. The next `CreateObject`
/// starts it anew.
void endHost();

/// The process of the running application; 0 while there is none.
qint64 hostProcess();

using ApplicationFactory = std::function<std::shared_ptr<Application>()>;

/// The real maker, whichever stands behind `CreateObject`.
std::shared_ptr<Application> CreateHostObject();

/// Puts another maker behind `CreateObject`; an empty one brings back the real one.
void setApplicationFactory(ApplicationFactory factory);

} // namespace ostrand::spreadsheet
