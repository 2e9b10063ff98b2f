// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "help_tour.h"

#include "app/frmHelp.h"
#include "app/help.h"
#include "app/program.h"
#include "camera.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

app::frmHelp& helpWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && qobject_cast<app::frmHelp*>(widget))
            return static_cast<app::frmHelp&>(*widget);
    }
    qFatal("the help did not open");
}

/// Goes through the contents to the first page with a picture on it.
void showPicture(app::frmHelp& help)
{
    auto* tree = help.findChild<QTreeWidget*>(u"treeContents"_s);
    const auto* page = help.findChild<QTextBrowser*>(u"browser"_s);
    const auto hasPicture = [page] { return page->toHtml().contains("<img "_L1); };
    for (auto* item = tree->topLevelItem(0); item && !hasPicture(); item = tree->itemBelow(item))
        tree->setCurrentItem(item);
}

} // namespace

void tourHelp(const Camera& camera, QWidget& window)
{
    window.findChild<QAction*>(u"mnuOnlineHelp"_s)->trigger();
    app::frmHelp& help = helpWindow();
    const QSize screen = help.screen()->availableSize();
    help.resize(std::min(1080, screen.width() - 80), std::min(720, screen.height() - 100));
    help.move(40, 40);
    camera.take(u"help-front"_s, &help);

    help.findChild<QAction*>(u"mnuSearch"_s)->trigger();
    auto* words = help.findChild<QLineEdit*>(u"txtSearch"_s);
    QTest::keyClicks(words, u"datasheet"_s);
    QTest::keyClick(words, Qt::Key_Return);
    camera.take(u"help-search"_s, &help);

    showPicture(help);
    help.findChild<QAction*>(u"mnuFind"_s)->trigger();
    auto* text = help.findChild<QLineEdit*>(u"txtFind"_s);
    QTest::keyClicks(text, u"the"_s);
    QTest::keyClick(text, Qt::Key_Return);
    camera.take(u"help-page"_s, &help);
    camera.takeModal(u"help-print"_s,
                     [&help] { help.findChild<QAction*>(u"mnuPrint"_s)->trigger(); });
    help.close();
    camera.takeModal(u"message-help-missing"_s,
                     [&window] { app::ShowHelpTopic(&window, u"ID_NOTHING"_s, true); });
}

} // namespace ostrand::tour
