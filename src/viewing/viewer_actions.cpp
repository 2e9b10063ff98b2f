// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/viewer_actions.h"

#include <QAction>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {

QToolButton*
makeButton(QWidget* owner, const ViewerAction& design, const std::function<void()>& handler)
{
    auto* action = new QAction(viewerIcon(design.glyph), design.text, owner);
    action->setShortcuts(design.keys);
    if (!design.keys.isEmpty())
        action->setToolTip(design.text + u" ("_s
                           + design.keys.first().toString(QKeySequence::NativeText) + u')');
    owner->addAction(action);
    QObject::connect(action, &QAction::triggered, owner, handler);

    auto* button = new QToolButton(owner);
    button->setObjectName(design.name);
    button->setDefaultAction(action);
    button->setAccessibleName(design.text);
    button->setAutoRaise(true);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::TabFocus);
    if (design.showsText)
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
}

} // namespace ostrand::viewing
