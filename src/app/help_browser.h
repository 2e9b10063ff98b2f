// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/help_file.h"

#include <QTextBrowser>

#include <memory>

namespace ostrand::app {

/// Shows pages of a help file. Whatever a page names is taken from that file or not at all: nothing
/// is read from other files or from the network. Web links go to the user's browser.
class HelpBrowser final : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent = nullptr);

    /// The file whose pages are shown from now on; the history of another one is dropped.
    void setFile(std::shared_ptr<const HelpFile> file);
    /// Shows a page such as "ID_MANUAL.htm#keys". False, and nothing changes, where it is missing,
    /// or is no page that can be shown.
    bool showPage(const QString& page);
    /// The name of the page in sight, without the place on it.
    QString page() const;
    /// Marks the words of a search, and brings the first one into sight.
    void markWords(const QStringList& words);
    /// Goes to the next place of a text, round the end. False where there is none.
    bool goToText(const QString& text, bool backwards);
    /// One step larger or smaller, within bounds; 0 goes back to the usual size.
    void stepZoom(int steps);

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    /// Another page is in sight.
    void pageShown(const QString& page);
    /// A link names a page that is not there.
    void pageMissing();
    /// A link names a page of the other help file: its topic, and whether that is the manual.
    void otherHelpAsked(const QString& topic, bool blnManual);

protected:
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void takeColours();
    void follow(const QUrl& link);
    bool followToOtherHelp(const QUrl& link);
    std::optional<QString> readPage(const QString& name) const;

    std::shared_ptr<const HelpFile> m_file;
    bool m_isNewFile = false;
    int m_zoom = 0;
};

} // namespace ostrand::app
