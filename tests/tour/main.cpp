// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// ostrand-tour FOLDER: walks through the program three times, at 100 % and at 150 % scale and with
// dark colours, and leaves the pictures in the folder. Each walk is a process of its own, as a
// scale holds for a process.
#include "app/program.h"
#include "camera.h"
#include "index_tour.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QProcess>
#include <QSettings>
#include <QStyleFactory>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct Walk
{
    QString mark; ///< in front of the pictures' names
    QString scale;
    bool dark;
};

const QList<Walk>& walks()
{
    static const QList<Walk> all{
        {QString(), u"1"_s, false}, {u"large-"_s, u"1.5"_s, false}, {u"dark-"_s, u"1"_s, true}};
    return all;
}

void useDarkColours()
{
    QPalette dark(QColor(0x35, 0x38, 0x3c));
    dark.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
    dark.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2e, 0x32));
    dark.setColor(QPalette::Highlight, QColor(0x2a, 0x62, 0x9a));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x7a, 0xb8, 0xf5));
    dark.setColor(QPalette::LinkVisited, QColor(0xb8, 0xa0, 0xf0));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x84, 0x88));
    QApplication::setPalette(dark);
}

int walkOnce(const QString& folder, const Walk& walk)
{
    if (walk.dark)
        useDarkColours();
    // The pictures show the spreadsheet application alike on every machine.
    qputenv("SAL_USE_VCLPLUGIN", "gen");
    const QTemporaryDir settings;
    ostrand::app::nameApplication();
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    ostrand::tour::tourIndex(ostrand::tour::Camera(folder, walk.mark));
    return 0;
}

int walkAll(const QString& folder)
{
    QDir().mkpath(folder);
    for (int i = 0; i < walks().size(); ++i) {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_SCALE_FACTOR"_s, walks()[i].scale);
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(), {folder, QString::number(i)});
        process.waitForFinished(-1);
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
            return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    const QStringList words = QApplication::arguments();
    if (words.size() < 2)
        qFatal("usage: ostrand-tour FOLDER");
    const QString folder = QDir(words[1]).absolutePath();
    return words.size() > 2 ? walkOnce(folder, walks().at(words[2].toInt())) : walkAll(folder);
}
