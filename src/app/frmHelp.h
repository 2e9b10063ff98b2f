// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/help_contents.h"
#include "app/help_file.h"
#include "app/help_search.h"

#include <QMainWindow>

#include <memory>

class QPrinter;
class QSplitter;
class QTabWidget;

namespace ostrand::app {

class HelpBrowser;
class HelpContentsTree;
class HelpFindBar;
class HelpSearchPane;

/// The window in which the user reads a help file: its contents and a search at the left, the page
/// at the right. It may stay open while the user works on, also beside modal windows.
class frmHelp final : public QMainWindow
{
    Q_OBJECT

public:
    /// `name` is what the caption says beside the title of the page.
    explicit frmHelp(QString name);
    ~frmHelp() override;

    /// Shows a page of a file and brings the window to the front. False, and nothing changes, where
    /// the page cannot be shown.
    bool ShowTopic(const HelpFile& file, const QString& page);
    /// Prints the page in sight, or what is selected of it.
    void print(QPrinter& printer);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void buildActions();
    void connectControls();
    void setFile(const HelpFile& file);
    HelpSearch collectPages() const;
    void showPage(const QString& page);
    void pageShown(const QString& page);
    void goHome();
    void printPage();
    void escape();
    void restoreKeptGeometry();

    QString m_name;
    std::shared_ptr<const HelpFile> m_file;
    std::vector<HelpTopic> m_topics;
    QString m_home;
    QSplitter* m_splitter;
    QTabWidget* m_tabs;
    HelpContentsTree* m_contents;
    HelpSearchPane* m_search;
    HelpBrowser* m_browser;
    HelpFindBar* m_find;
};

} // namespace ostrand::app
