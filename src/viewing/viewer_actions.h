// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/viewer_icons.h"

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>

class QAction;
class QToolButton;
class QWidget;

namespace ostrand::viewing {

/// A command of the report viewer.
struct ViewerAction
{
    QString name; ///< of its button: "cmdPrint"
    QString text;
    Glyph glyph;
    QList<QKeySequence> keys = {}; ///< work in the whole window
    bool showsText = false;        ///< the button has the text beside the sign
};

/// A button with its command, which the button's `defaultAction` enables and triggers.
QToolButton*
makeButton(QWidget* owner, const ViewerAction& design, const std::function<void()>& handler);

} // namespace ostrand::viewing
