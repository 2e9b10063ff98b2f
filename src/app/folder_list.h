// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

namespace ostrand::app {

/// The folders in one folder, with ".." ahead of them. A double click or Enter asks for one to be
/// opened; Backspace for the folder above.
class FolderList final : public QListWidget
{
    Q_OBJECT

public:
    explicit FolderList(QWidget* parent = nullptr);

    /// The folder whose content is shown, with the platform's separators.
    QString path() const { return m_path; }
    /// Shows another folder; raises `store::Error` 68, 70, 76 and goes on showing the one before.
    void setPath(const QString& path);
    /// Makes a folder of this name the current entry.
    void select(const QString& name);

Q_SIGNALS:
    /// The user wants to see a folder.
    void folderChosen(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void choose(const QListWidgetItem* item);

    QString m_path;
};

} // namespace ostrand::app
