// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/folder_list.h"

#include "toolkit/folders.h"
#include "toolkit/paths.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

const QString up = u".."_s;

} // namespace

FolderList::FolderList(QWidget* parent)
    : QListWidget(parent)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
}

void FolderList::setPath(const QString& path)
{
    const QDir folder(QDir(toolkit::filePath(path)).absolutePath());
    QStringList names = toolkit::subfolders(folder.path());
    if (!folder.isRoot())
        names.prepend(up);
    const QString left = QDir::fromNativeSeparators(m_path);
    m_path = QDir::toNativeSeparators(QDir::cleanPath(folder.path()));
    clear();
    const QIcon icon = style()->standardIcon(QStyle::SP_DirIcon);
    const QIcon iconUp = style()->standardIcon(QStyle::SP_FileDialogToParent);
    for (const QString& name : names)
        addItem(new QListWidgetItem(name == up ? iconUp : icon, name));
    setCurrentRow(0);
    // On the way up the user finds the folder that he came from.
    if (QFileInfo(left).path() == folder.path())
        select(QFileInfo(left).fileName());
}

void FolderList::select(const QString& name)
{
    const QList<QListWidgetItem*> found =
        findItems(name, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (!found.isEmpty())
        setCurrentItem(found.constFirst());
}

void FolderList::choose(const QListWidgetItem* item)
{
    const QString folder = QDir::fromNativeSeparators(m_path);
    Q_EMIT folderChosen(item->text() == up ? QFileInfo(folder).path()
                                           : QDir(folder).filePath(item->text()));
}

void FolderList::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentItem()) {
        choose(currentItem());
    } else if (event->key() == Qt::Key_Backspace) {
        if (count() > 0 && item(0)->text() == up)
            choose(item(0));
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void FolderList::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QListWidgetItem* clicked = itemAt(event->position().toPoint());
    if (clicked && event->button() == Qt::LeftButton)
        choose(clicked);
}

} // namespace ostrand::app
