// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/frmHelp.h"

#include "app/beside_modal.h"
#include "app/help.h"
#include "app/help_browser.h"
#include "app/help_contents_tree.h"
#include "app/help_find_bar.h"
#include "app/help_page.h"
#include "app/help_search_pane.h"
#include "toolkit/named.h"

#include <QAction>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QSet>
#include <QSettings>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;
using ostrand::toolkit::named;

namespace ostrand::app {
namespace {

constexpr QSize usualSize(1080, 760);
constexpr int contentsWidth = 290;
/// Left free around the window on a smaller screen.
constexpr QSize screenMargin(40, 80);
const QString geometryKey = u"Windows/frmHelp"_s;
const QString splitterKey = u"Windows/frmHelpContents"_s;

QString contentsName()
{
    return u"contents.hhc"_s;
}

/// The text of a page without the heading, which repeats its title.
QString searchedText(const QString& html)
{
    const QString text = helpPageText(html).trimmed();
    const QString heading = text.section(u'\n', 0, 0).simplified();
    return heading == helpPageTitle(html) ? text.section(u'\n', 1) : text;
}

} // namespace

frmHelp::frmHelp(QString name)
    : m_name(std::move(name)),
      m_splitter(named(new QSplitter(this), u"splitter"_s)),
      m_tabs(named(new QTabWidget(m_splitter), u"tabs"_s)),
      m_contents(named(new HelpContentsTree(m_tabs), u"treeContents"_s)),
      m_search(new HelpSearchPane([this] { return collectPages(); }, m_tabs)),
      m_browser(named(new HelpBrowser(m_splitter), u"browser"_s)),
      m_find(new HelpFindBar(*m_browser, this))
{
    setObjectName(u"frmHelp"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    build();
    buildActions();
    connectControls();
    restoreKeptGeometry();
    create();
    new BesideModal(*this);
}

frmHelp::~frmHelp() = default;

void frmHelp::build()
{
    m_tabs->addTab(m_contents, tr("&Contents"));
    m_tabs->addTab(m_search, tr("&Search"));
    m_tabs->setDocumentMode(true);
    m_tabs->setAccessibleName(tr("Contents and search"));
    m_browser->setAccessibleName(tr("Help page"));
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);

    auto* client = new QWidget(this);
    auto* layout = new QVBoxLayout(client);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_find);
    setCentralWidget(client);
}

void frmHelp::buildActions()
{
    auto* bar = named(addToolBar(tr("Help")), u"toolBar"_s);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    const auto add = [this](const QString& name, const QString& text, const auto& keys, auto run) {
        auto* action = named(new QAction(text, this), name);
        action->setShortcuts(keys);
        const QString key = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(QString(text).remove(u'&').remove(u"..."_s) + u" ("_s + key + u')');
        connect(action, &QAction::triggered, this, run);
        addAction(action);
        return action;
    };
    const auto key = [](const QString& keys) { return QList{QKeySequence(keys)}; };

    auto* back =
        add(u"mnuBack"_s, tr("&Back"), key(u"Alt+Left"_s), [this] { m_browser->backward(); });
    auto* forward =
        add(u"mnuForward"_s, tr("F&orward"), key(u"Alt+Right"_s), [this] { m_browser->forward(); });
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    back->setEnabled(false);
    forward->setEnabled(false);
    bar->addActions({back, forward});
    bar->addAction(add(u"mnuHome"_s, tr("&Home"), key(u"Alt+Home"_s), [this] { goHome(); }));
    bar->addSeparator();
    bar->addAction(
        add(u"mnuFind"_s, tr("&Find on Page"), key(u"Ctrl+F"_s), [this] { m_find->start(); }));
    bar->addAction(add(u"mnuSearch"_s, tr("Sea&rch"), key(u"Ctrl+Shift+F"_s), [this] {
        m_tabs->setCurrentWidget(m_search);
        m_search->start();
    }));
    bar->addSeparator();
    bar->addAction(add(
        u"mnuZoomOut"_s, tr("S&maller"), key(u"Ctrl+-"_s), [this] { m_browser->stepZoom(-1); }));
    bar->addAction(add(u"mnuZoomIn"_s,
                       tr("&Larger"),
                       QList{QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+="_s)},
                       [this] { m_browser->stepZoom(1); }));
    bar->addSeparator();
    bar->addAction(add(u"mnuPrint"_s, tr("&Print..."), key(u"Ctrl+P"_s), [this] { printPage(); }));

    add(u"mnuZoomReset"_s, tr("Usual Size"), key(u"Ctrl+0"_s), [this] { m_browser->stepZoom(0); });
    add(u"mnuFindNext"_s, tr("Find Next"), key(u"F3"_s), [this] { m_find->find(false); });
    add(u"mnuFindPrevious"_s, tr("Find Previous"), key(u"Shift+F3"_s), [this] {
        m_find->find(true);
    });
    add(u"mnuClose"_s, tr("Close"), key(u"Esc"_s), [this] { escape(); });
}

void frmHelp::connectControls()
{
    connect(m_contents, &HelpContentsTree::picked, this, &frmHelp::showPage);
    connect(m_search,
            &HelpSearchPane::picked,
            this,
            [this](const QString& page, const QStringList& words) {
                showPage(page);
                m_browser->markWords(words);
            });
    connect(m_browser, &HelpBrowser::pageShown, this, &frmHelp::pageShown);
    connect(m_browser, &HelpBrowser::pageMissing, this, &tellMissingHelp);
    connect(
        m_browser,
        &HelpBrowser::otherHelpAsked,
        this,
        [this](const QString& topic, bool blnManual) { ShowHelpTopic(this, topic, blnManual); });
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] {
        if (m_tabs->currentWidget() == m_search)
            m_search->start();
    });
}

bool frmHelp::ShowTopic(const HelpFile& file, const QString& page)
{
    const auto bytes = file.read(page);
    if (!bytes || !isShowablePage(decodeHelpPage(*bytes)))
        return false;
    if (!m_file || !m_file->isSameAs(file))
        setFile(file);
    if (m_home.isEmpty())
        m_home = page;
    m_browser->showPage(page);
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    m_browser->setFocus();
    return true;
}

void frmHelp::setFile(const HelpFile& file)
{
    m_file = std::make_shared<const HelpFile>(file);
    const auto contents = m_file->read(contentsName());
    m_topics = readHelpContents(contents ? decodeHelpPage(*contents) : QString());
    m_browser->setFile(m_file);
    m_contents->setTopics(m_topics);
    m_search->forget();
    m_home.clear();
}

HelpSearch frmHelp::collectPages() const
{
    HelpSearch search;
    QSet<QString> seen;
    for (const HelpTopic& topic : m_topics) {
        const QString page = topic.page.section(u'#', 0, 0);
        if (page.isEmpty() || seen.contains(page.toCaseFolded()))
            continue;
        seen.insert(page.toCaseFolded());
        const auto bytes = m_file->read(page);
        const QString html = bytes ? decodeHelpPage(*bytes) : QString();
        if (!html.isEmpty() && isShowablePage(html))
            search.addPage(page, topic.title, searchedText(html));
    }
    return search;
}

void frmHelp::showPage(const QString& page)
{
    if (!m_browser->showPage(page))
        tellMissingHelp();
}

void frmHelp::pageShown(const QString& page)
{
    const QString title = m_browser->documentTitle().simplified();
    setWindowTitle(title.isEmpty() ? m_name : title + u" - "_s + m_name);
    m_contents->showCurrent(page);
}

void frmHelp::goHome()
{
    showPage(m_home);
}

void frmHelp::printPage()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, m_browser->textCursor().hasSelection());
    if (dialog.exec() == QDialog::Accepted)
        print(printer);
}

void frmHelp::print(QPrinter& printer)
{
    printer.setDocName(windowTitle());
    m_browser->print(&printer);
}

void frmHelp::escape()
{
    if (m_find->isHidden()) {
        close();
        return;
    }
    m_find->hide();
    m_browser->setFocus();
}

void frmHelp::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(splitterKey, m_splitter->saveState());
    QMainWindow::closeEvent(event);
}

void frmHelp::restoreKeptGeometry()
{
    const QSettings settings;
    // Qt pulls a window back that would open off the screens of today.
    if (!restoreGeometry(settings.value(geometryKey).toByteArray()))
        resize(usualSize.boundedTo(screen()->availableSize() - screenMargin));
    if (!m_splitter->restoreState(settings.value(splitterKey).toByteArray()))
        m_splitter->setSizes({contentsWidth, width() - contentsWidth});
}

} // namespace ostrand::app
