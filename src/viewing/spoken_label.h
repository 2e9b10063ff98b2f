// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

class QLabel;
class QString;

namespace ostrand::viewing {

/// Shows a text in a label, and tells it with the label's name to those who hear the screen.
void showLabel(QLabel& label, const QString& name, const QString& text);

} // namespace ostrand::viewing
