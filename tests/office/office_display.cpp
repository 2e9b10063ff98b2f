// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "office/office_display.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

constexpr int shortWait = 5000; ///< milliseconds
constexpr int showTime = 10000; ///< milliseconds for a window to show

QString run(const QString& program, const QStringList& words)
{
    QProcess process;
    process.start(program, words);
    process.waitForFinished(shortWait);
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

OfficeDisplay::OfficeDisplay()
{
    m_server.start(
        u"/bin/sh"_s,
        {u"-c"_s, u"exec Xvfb -displayfd 1 -screen 0 1600x1000x24 -nolisten tcp 2>/dev/null"_s});
    if (!m_server.waitForReadyRead(shortWait * 4))
        qFatal("no display could be started");
    const QByteArray display = ':' + m_server.readLine().trimmed();
    qputenv("DISPLAY", display);
    qputenv("SAL_USE_VCLPLUGIN", "gen");
    // Nothing of the tester's own settings.
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    m_manager.setStandardErrorFile(QProcess::nullDevice());
    m_manager.start(u"openbox"_s, {});
    m_manager.waitForStarted();
}

OfficeDisplay::~OfficeDisplay()
{
    for (QProcess* process : {&m_manager, &m_server}) {
        process->terminate();
        process->waitForFinished(shortWait);
    }
}

QString OfficeDisplay::xdotool(const QStringList& words)
{
    return run(u"xdotool"_s, words);
}

void OfficeDisplay::press(const QStringList& keys)
{
    xdotool(QStringList{u"key"_s, u"--clearmodifiers"_s, u"--delay"_s, u"30"_s} + keys);
}

void OfficeDisplay::type(const QString& text)
{
    xdotool({u"type"_s, u"--delay"_s, u"15"_s, text});
}

void OfficeDisplay::click(int x, int y)
{
    xdotool({u"mousemove"_s, QString::number(x), QString::number(y), u"click"_s, u"1"_s});
}

QStringList OfficeDisplay::windows()
{
    QStringList titles;
    const QStringList ids = xdotool({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"."_s})
                                .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& id : ids)
        titles << xdotool({u"getwindowname"_s, id}).trimmed();
    titles.removeAll(QString());
    return titles;
}

bool OfficeDisplay::activate(const QString& title)
{
    const QString id = xdotool({u"search"_s, u"--onlyvisible"_s, u"--name"_s, title})
                           .section(u'\n', 0, 0)
                           .trimmed();
    if (id.isEmpty())
        return false;
    xdotool({u"windowactivate"_s, u"--sync"_s, id});
    return true;
}

bool OfficeDisplay::bringUp(const QString& title)
{
    return QTest::qWaitFor([&] { return activate(title); }, showTime);
}

} // namespace ostrand::tests
