// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/desktop_association.h"

#include "store/error.h"
#include "viewing/desktop_entry.h"
#include "viewing/key_file.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <QMimeDatabase>
#include <QStandardPaths>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::viewing {
namespace {

/// The desktop entries of all folders by their ids. Of one id the entry in the first folder counts,
/// also when it is hidden.
class Entries
{
public:
    explicit Entries(const QStringList& folders)
    {
        for (const QString& folder : folders)
            readFolder(folder);
    }

    const DesktopEntry* find(const QString& id) const
    {
        const auto found = m_entries.constFind(id);
        return found == m_entries.cend() || !*found ? nullptr : &**found;
    }

    /// The ids that a folder brought, in order.
    QStringList idsOf(const QString& folder) const { return m_ids.value(folder); }

private:
    void readFolder(const QString& folder)
    {
        QStringList ids;
        QDirIterator files(folder, {u"*.desktop"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString id = QDir(folder).relativeFilePath(path).replace(u'/', u'-');
            if (m_entries.contains(id))
                continue;
            auto entry = DesktopEntry::read(path);
            m_entries.insert(id, entry && !entry->isHidden() ? entry : std::nullopt);
            ids << id;
        }
        ids.sort();
        m_ids.insert(folder, ids);
    }

    QHash<QString, std::optional<DesktopEntry>> m_entries;
    QHash<QString, QStringList> m_ids;
};

/// The lists of associations of one folder: those for the running desktop know defaults only.
struct Lists
{
    QString folder;
    std::vector<KeyFile> ofDesktop;
    std::optional<KeyFile> general;
};

Lists listsOf(const QString& folder)
{
    Lists lists;
    lists.folder = folder;
    const QStringList desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    for (const QString& desktop : desktops) {
        if (auto list = KeyFile::read(folder + u'/' + desktop.toLower() + u"-mimeapps.list"_s))
            lists.ofDesktop.push_back(*list);
    }
    lists.general = KeyFile::read(folder + u"/mimeapps.list"_s);
    return lists;
}

/// Which programs are for which types, from all lists and entries as they are now.
class Associations
{
public:
    Associations()
        : m_applications(QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)),
          m_entries(m_applications)
    {
        const QStringList settings =
            QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
        for (const QString& folder : settings + m_applications)
            m_lists.push_back(listsOf(folder));
    }

    const DesktopEntry* entry(const QString& id) const { return m_entries.find(id); }

    /// The ids for a type under all its names: the default ones first.
    QStringList idsFor(const QStringList& typeNames) const
    {
        QStringList ids = defaultsFor(typeNames);
        ids += associatedWith(typeNames);
        ids.removeDuplicates();
        return ids;
    }

private:
    static QStringList
    listed(const KeyFile& list, const QString& group, const QStringList& typeNames)
    {
        QStringList ids;
        for (const QString& name : typeNames)
            ids += list.list(group, name);
        return ids;
    }

    QStringList defaultsFor(const QStringList& typeNames) const
    {
        const QString group = u"Default Applications"_s;
        QStringList ids;
        for (const Lists& lists : m_lists) {
            for (const KeyFile& list : lists.ofDesktop)
                ids += listed(list, group, typeNames);
            if (lists.general)
                ids += listed(*lists.general, group, typeNames);
        }
        return ids;
    }

    /// What a list takes away holds for the lists and entries of the folders behind it, and for the
    /// entries of its own.
    QStringList associatedWith(const QStringList& typeNames) const
    {
        QStringList ids;
        QStringList removed;
        const auto add = [&](const QString& id) {
            if (!removed.contains(id))
                ids << id;
        };
        for (const Lists& lists : m_lists) {
            if (lists.general) {
                for (const QString& id : listed(*lists.general, u"Added Associations"_s, typeNames))
                    add(id);
                removed += listed(*lists.general, u"Removed Associations"_s, typeNames);
            }
            for (const QString& id : m_entries.idsOf(lists.folder)) {
                if (opens(id, typeNames))
                    add(id);
            }
        }
        return ids;
    }

    bool opens(const QString& id, const QStringList& typeNames) const
    {
        const DesktopEntry* found = entry(id);
        if (!found)
            return false;
        const QStringList types = found->mimeTypes();
        return std::any_of(typeNames.cbegin(), typeNames.cend(), [&](const QString& name) {
            return types.contains(name);
        });
    }

    QStringList m_applications;
    Entries m_entries;
    std::vector<Lists> m_lists;
};

/// The types that a file's name tells, each in front of those that it is a kind of. That a type is
/// some sequence of bytes says nothing of who opens it.
std::vector<QStringList> typesOf(const QString& file)
{
    const QMimeDatabase database;
    const QString anything = u"application/octet-stream"_s;
    std::vector<QStringList> types;
    for (const QMimeType& type : database.mimeTypesForFileName(QFileInfo(file).fileName())) {
        for (const QString& name : QStringList{type.name()} + type.allAncestors()) {
            if (name != anything)
                types.push_back(QStringList{name} + database.mimeTypeForName(name).aliases());
        }
    }
    return types;
}

} // namespace

std::optional<OpenCommand> desktopCommand(const QString& file)
{
    const Associations associations;
    std::optional<Error> failure;
    for (const QStringList& typeNames : typesOf(file)) {
        for (const QString& id : associations.idsFor(typeNames)) {
            const DesktopEntry* entry = associations.entry(id);
            try {
                if (auto command = entry ? entry->commandFor(file) : std::nullopt)
                    return command;
            } catch (const Error& error) {
                failure = error;
            }
        }
    }
    if (failure)
        throw Error(*failure);
    return std::nullopt;
}

} // namespace ostrand::viewing
