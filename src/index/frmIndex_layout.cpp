// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Where the controls stand as the window is resized. Measures are twips of the design; the rules
// count the whole window, of which its caption, menu bar and borders took the sums below.
#include "index/frmIndex.h"
#include "index/index_buttons.h"
#include "toolkit/data_grid.h"
#include "toolkit/twips.h"

#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

using namespace Qt::StringLiterals;
using ostrand::toolkit::px;

namespace ostrand::index {
namespace {

constexpr int bordersWidth = 120;
constexpr int captionAndMenuHeight = 690;
constexpr int designClientWidth = 9975;
constexpr int designClientHeight = 9315;
constexpr int statusBarHeight = 375;
constexpr int buttonFrameHeight = 1335;
constexpr int leastGridHeight = 2000;
const QString geometryKey = u"Windows/frmIndex"_s;

} // namespace

void frmIndex::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    layoutControls();
}

void frmIndex::layoutControls()
{
    const auto twips = [this](int pixels) { return pixels * 1000 / px(1000, this); };
    const int bar = px(statusBarHeight, this);
    const int width = twips(this->width()) + bordersWidth;
    const int height = twips(this->height() - menuBar()->height() - statusBar()->height() + bar)
                       + captionAndMenuHeight;
    const int button = twips(m_buttons->buttonHeight());
    if (width - 350 <= 10 || height - button - statusBarHeight - 1000 <= 10)
        return;

    const int rest = height - button - statusBarHeight;
    m_GridIndex->setGeometry(0, 0, px(width - 200, this), px(rest - 1800, this));
    m_buttons->setGeometry(
        px(200, this), px(rest - 1750, this), px(width - 500, this), px(buttonFrameHeight, this));
    const int panels = twips(statusBar()->width());
    m_panels[0]->setFixedWidth(px((panels - 400) / 2, this));
    m_panels[1]->setFixedWidth(px(panels / 2, this));
}

void frmIndex::keepGeometry() const
{
    QSettings().setValue(geometryKey, saveGeometry());
}

void frmIndex::restoreKeptGeometry()
{
    statusBar()->setFixedHeight(px(statusBarHeight, this));
    setMinimumWidth(m_buttons->neededWidth() + px(300, this));
    setMinimumHeight(px(buttonFrameHeight + statusBarHeight + leastGridHeight, this)
                     + menuBar()->sizeHint().height());
    // Qt pulls a window back that would open off the screens of today.
    if (restoreGeometry(QSettings().value(geometryKey).toByteArray()))
        return;
    resize(px(designClientWidth, this),
           px(designClientHeight, this) + menuBar()->sizeHint().height());
}

} // namespace ostrand::index
