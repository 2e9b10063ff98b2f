// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/desktop_entry.h"

#include "store/error.h"
#include "toolkit/file_system.h"
#include "viewing/exec_line.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {
namespace {

const QString group = u"Desktop Entry"_s;

/// Full path of a program named with its folder or without; "" where it is not installed.
QString installed(const QString& program)
{
    if (!program.contains(u'/'))
        return QStandardPaths::findExecutable(program);
    const QFileInfo file(program);
    return file.isAbsolute() && file.isFile() && file.isExecutable() ? program : QString();
}

/// A program that shows a terminal, and what it wants in front of the command that runs there.
struct Terminal
{
    const char16_t* program;
    const char16_t* option;
};

constexpr std::array terminals{Terminal{u"xdg-terminal-exec", u""},
                               Terminal{u"x-terminal-emulator", u"-e"},
                               Terminal{u"gnome-terminal", u"--"},
                               Terminal{u"konsole", u"-e"},
                               Terminal{u"xfce4-terminal", u"-x"},
                               Terminal{u"xterm", u"-e"}};

QStringList inTerminal(const QStringList& words, const QString& name)
{
    for (const Terminal& terminal : terminals) {
        const QString program = installed(QString::fromUtf16(terminal.program));
        if (program.isEmpty())
            continue;
        QStringList whole{program};
        if (*terminal.option != 0)
            whole << QString::fromUtf16(terminal.option);
        return whole + words;
    }
    throw store::Error(
        toolkit::fileErrors::fileNotFound,
        QCoreApplication::translate(
            "DesktopEntry", "%1 runs in a terminal window, and no terminal program was found.")
            .arg(name));
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::read(const QString& path)
{
    const auto keys = KeyFile::read(path);
    if (!keys || keys->text(group, u"Type"_s) != u"Application"_s)
        return std::nullopt;
    DesktopEntry entry;
    entry.m_keys = *keys;
    entry.m_path = path;
    return entry;
}

QString DesktopEntry::text(const QString& key) const
{
    return m_keys.text(group, key);
}

bool DesktopEntry::isHidden() const
{
    return m_keys.flag(group, u"Hidden"_s);
}

QStringList DesktopEntry::mimeTypes() const
{
    return m_keys.list(group, u"MimeType"_s);
}

QString DesktopEntry::localizedName() const
{
    const QString locale = QLocale().name();
    for (const QString& language : {locale, locale.section(u'_', 0, 0)}) {
        if (QString name = text(u"Name["_s + language + u']'); !name.isEmpty())
            return name;
    }
    return text(u"Name"_s);
}

std::optional<OpenCommand> DesktopEntry::commandFor(const QString& file) const
{
    const QString needed = text(u"TryExec"_s);
    if (!needed.isEmpty() && installed(needed).isEmpty())
        return std::nullopt;
    const QString name = localizedName();
    auto words = execWords(text(u"Exec"_s),
                           {.file = file, .name = name, .icon = text(u"Icon"_s), .entry = m_path});
    if (!words)
        return std::nullopt;
    words->first() = installed(words->first());
    if (words->first().isEmpty())
        return std::nullopt;
    if (m_keys.flag(group, u"Terminal"_s))
        words = inTerminal(*words, name);
    const QString program = words->takeFirst();
    const QString folder = text(u"Path"_s);
    return OpenCommand{program, *words, QFileInfo(folder).isDir() ? folder : QString()};
}

} // namespace ostrand::viewing
