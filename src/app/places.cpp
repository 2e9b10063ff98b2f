// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/places.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

/// Disks and shares; not what the system mounts for itself.
bool isForUsers(const QStorageInfo& volume)
{
    static const QList<QByteArray> shares{
        "cifs", "smb3", "nfs", "nfs4", "9p", "fuse.sshfs", "fuse.gvfsd-fuse", "vboxsf"};
    static const QStringList systemFolders{u"/boot"_s, u"/snap"_s, u"/var/lib"_s};
    const QString root = volume.rootPath();
    const bool isSystem =
        std::any_of(systemFolders.begin(), systemFolders.end(), [&root](const QString& folder) {
            return root == folder || root.startsWith(folder + u'/');
        });
    return volume.isValid() && volume.isReady() && !isSystem && QFileInfo(root).isDir()
           && (volume.device().startsWith("/dev/") || shares.contains(volume.fileSystemType()));
}

} // namespace

std::vector<Place> mountedPlaces()
{
    std::vector<Place> places;
    const auto add = [&places](const QString& name, const QString& path) {
        const bool isThere = std::any_of(
            places.begin(), places.end(), [&](const Place& place) { return place.path == path; });
        if (!isThere)
            places.push_back({name, path});
    };
    for (const QFileInfo& drive : QDir::drives()) {
        const QString path = drive.absoluteFilePath();
        add(path == u"/"_s ? QCoreApplication::translate("places", "File system") : path, path);
    }
    add(QCoreApplication::translate("places", "Home"), QDir::homePath());
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (isForUsers(volume))
            add(volume.displayName(), volume.rootPath());
    }
    return places;
}

} // namespace ostrand::app
