// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

namespace ostrand::app {

/// The topic that all help buttons open.
QString helpTopicManual();

/// Opens a page of the manual, or of the error reference, over `owner`. Without the help file or
/// the page a message tells so.
void ShowHelpTopic(QWidget* owner, const QString& topic, bool blnManual);

/// The message for a help file or a page that cannot be shown.
void tellMissingHelp();

/// Starts the update program, or tells that there is none and opens the download page.
void LaunchAutoUpdate();

} // namespace ostrand::app
