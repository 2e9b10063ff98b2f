// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/spoken_label.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {

void showLabel(QLabel& label, const QString& name, const QString& text)
{
    label.setText(text);
    label.setAccessibleName(text.isEmpty() ? name : name + u": "_s + text);
}

} // namespace ostrand::viewing
