// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/index_buttons.h"

#include "toolkit/twips.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;
using ostrand::toolkit::px;

namespace ostrand::index {
namespace {

/// Places are twips inside the frame.
struct Button
{
    const char* name;
    const char* caption;
    int left;
    int top;
    const char* toolTip = "";
};

constexpr int buttonWidth = 1095;
constexpr int designHeight = 375;
constexpr int firstRow = 240;
constexpr int secondRow = 840;
constexpr int frameMargin = 240;

constexpr std::array buttons{
    Button{"cmdTag", QT_TRANSLATE_NOOP("IndexButtons", "P&opulate"), 2880, firstRow},
    Button{"cmdImport",
           QT_TRANSLATE_NOOP("IndexButtons", "&Import"),
           4320,
           firstRow,
           QT_TRANSLATE_NOOP("IndexButtons", "Import from P&ID database")},
    Button{"cmdExport",
           QT_TRANSLATE_NOOP("IndexButtons", "Ex&port"),
           5760,
           firstRow,
           QT_TRANSLATE_NOOP("IndexButtons", "Export to P&ID database")},
    Button{"cmdHelp", QT_TRANSLATE_NOOP("IndexButtons", "Help"), 7200, firstRow},
    Button{"cmdDatasheet", QT_TRANSLATE_NOOP("IndexButtons", "Da&tasheet"), 1440, secondRow},
    Button{"cmdSave", QT_TRANSLATE_NOOP("IndexButtons", "&Save"), 2880, secondRow},
    Button{"cmdDelete", QT_TRANSLATE_NOOP("IndexButtons", "&Delete"), 4320, secondRow},
    Button{"cmdRefresh", QT_TRANSLATE_NOOP("IndexButtons", "&Refresh"), 5760, secondRow},
    Button{"cmdExit", QT_TRANSLATE_NOOP("IndexButtons", "&Exit"), 7200, secondRow},
};

} // namespace

IndexButtons::IndexButtons(QWidget* parent)
    : QFrame(parent)
{
    setObjectName(u"FrmBelow"_s);
    setAccessibleName(QCoreApplication::translate("IndexButtons", "Commands"));
    setFrameShape(QFrame::StyledPanel);
    for (const Button& design : buttons) {
        auto* made =
            new QPushButton(QCoreApplication::translate("IndexButtons", design.caption), this);
        made->setObjectName(QString::fromLatin1(design.name));
        if (*design.toolTip != 0)
            made->setToolTip(QCoreApplication::translate("IndexButtons", design.toolTip));
    }
    placeButtons();
}

QPushButton* IndexButtons::button(const QString& name) const
{
    return findChild<QPushButton*>(name);
}

int IndexButtons::buttonHeight() const
{
    return px(designHeight, this);
}

int IndexButtons::neededWidth() const
{
    return px(buttons.back().left + buttonWidth + frameMargin, this);
}

void IndexButtons::placeButtons()
{
    for (const Button& design : buttons) {
        if (auto* made = button(QString::fromLatin1(design.name))) {
            made->setGeometry(
                px(design.left, this), px(design.top, this), px(buttonWidth, this), buttonHeight());
        }
    }
}

void IndexButtons::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        placeButtons();
}

} // namespace ostrand::index
