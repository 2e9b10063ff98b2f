// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "link_tour.h"

#include "app/program_files.h"
#include "app/state.h"
#include "camera.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/file_name.h"
#include "index/frmIndex.h"
#include "store/database.h"
#include "toolkit/data_control.h"
#include "toolkit/paths.h"

#include <QFile>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

struct Sheet
{
    const char16_t* tag;
    const char16_t* templateName;
};
constexpr std::array sheets{Sheet{u"PT-2008", u"DS_PT.xlt"},
                            Sheet{u"PT-3008", u"DS_PT.xlt"},
                            Sheet{u"PT-4008", u"DS_PT.xlt"},
                            Sheet{u"LT-1003", u"DS_LT_RAD.xlt"},
                            Sheet{u"PSV-2014", u"DS_PSV.xlt"},
                            Sheet{u"TE-2011", u"DS_TE_TW.xlt"}};

void makeDatasheets(index::frmIndex& window)
{
    const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    const QString folder = window.FolderDatasheets();
    for (const Sheet& sheet : sheets) {
        const QString tag = QString::fromUtf16(sheet.tag);
        const QString name = datasheets::datasheetNameOf(tag);
        if (!datasheets::xlHndlr().CopySprSht(QString::fromUtf16(sheet.templateName),
                                              toolkit::joinPath(folder, name)))
            qFatal("no datasheet could be made for %s", qPrintable(tag));
        project.Execute(u"Update qryIndex set DatasheetPath = '"_s + folder
                        + u"', DataSheetFileName = '"_s + name + u"' where tag = '"_s + tag
                        + u"'"_s);
    }
    window.dbIndex().Refresh();
}

/// A picture while the run goes on, one of its closing message, and its log.
void run(const Camera& camera, index::frmIndex& window, const QString& command)
{
    const QString name = command.toLower();
    auto* progress = window.findChild<QProgressBar*>(u"Progress"_s);
    QObject halfway; // ends the watch with the run
    QObject::connect(progress, &QProgressBar::valueChanged, &halfway, [&](int value) {
        if (value == static_cast<int>(sheets.size()) / 2)
            QTimer::singleShot(0, &halfway, [&] { camera.take(name + u"-running"_s, &window); });
    });
    camera.takeModal(name + u"-done"_s, [&window, &command] {
        window.findChild<QPushButton*>(u"cmd"_s + command)->click();
    });
    const QString log = command + u".log"_s;
    const QString kept = toolkit::joinPath(camera.folder(), log);
    QFile::remove(kept);
    if (!QFile::copy(app::writableProgramFile(log), kept))
        qFatal("%s left no log", qPrintable(command));
}

} // namespace

void tourLink(const Camera& camera, index::frmIndex& window)
{
    if (!camera.isFirst())
        return;
    makeDatasheets(window);
    for (const QString& command : {u"Import"_s, u"Export"_s})
        run(camera, window, command);
}

} // namespace ostrand::tour
