// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>

class QWidget;

namespace ostrand::app {

class frmHelp;

/// Keeps the help windows, one for each help file. They close with the main window.
class HelpDesk final : public QObject
{
    Q_OBJECT

public:
    /// The one of the main window; before there is one, that of the window on which `owner` stands.
    static HelpDesk& of(QWidget* owner);
    ~HelpDesk() override;

    /// Shows a page of a help file in its window, which it makes where there is none. False where
    /// the file or the page cannot be shown.
    bool show(const QString& file, const QString& page, const QString& name);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit HelpDesk(QObject* keeper);
    void closeAll();

    QMap<QString, QPointer<frmHelp>> m_windows; ///< by file
};

} // namespace ostrand::app
