// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/frmPopulate.h"

#include "app/help.h"
#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "pid/frmDuplicate.h"
#include "pid/populate_model.h"
#include "pid/populate_report.h"
#include "spreadsheet/repaint.h"
#include "toolkit/busy_pointer.h"
#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::repaint;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::pid {
namespace {

namespace errors = store::errors;

// Twips; a usual tag is read at a glance, and some thirty of them are seen at once.
constexpr int designWidth = 5200;
constexpr int designHeight = 7600;

constexpr int msBetweenPaints = 100;

/// What a failed load is called.
QString wordsFor(const Error& error)
{
    switch (error.number()) {
    case errors::readOnly:
        return toolkit::formB(frmPopulate::tr("Error while reading from Default P&ID Database. "
                                              "Database is read only. "),
                              error);
    case errors::tableNotFound:
        return frmPopulate::tr("The default P&ID Database selected by you is wrong. Please select "
                               "correct P&ID Database.");
    case errors::fileNotFound:
        return toolkit::formB(frmPopulate::tr("Could not find default P&ID Database."), error);
    case errors::missingParameter:
        return frmPopulate::tr(
            "Data field value does not exist. Please review Defalut P&ID Database.");
    default:
        return frmPopulate::tr("Error : ") + QString::number(error.number()) + u". "_s
               + error.description();
    }
}

/// The command that opens the window passes over a load that fails: no box shows. The status bar
/// says why nothing appeared.
void tellInPassing(const QString& words)
{
    if (app::g_frmIndex)
        app::g_frmIndex->setPanelText(1, QString(words).replace(u"\r\n"_s, u" "_s));
}

/// Lets windows be painted in a long run.
class Painting
{
public:
    Painting() { m_since.start(); }
    void nowAndThen()
    {
        if (m_since.elapsed() < msBetweenPaints)
            return;
        repaint();
        m_since.restart();
    }

private:
    QElapsedTimer m_since;
};

} // namespace

frmPopulate::frmPopulate(QString strPIDDatabase, QWidget* parent, Opener open)
    : QDialog(parent),
      m_strPIDDatabase(std::move(strPIDDatabase)),
      m_open(std::move(open)),
      m_lines(new PopulateModel(this)),
      m_lstPopulate(named(new QListView, u"lstPopulate"_s)),
      m_cmdOk(named(new QPushButton(tr("&OK")), u"CmdOk"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s)),
      m_cmdHelp(named(new QPushButton(tr("&Help")), u"cmdHelp"_s))
{
    setObjectName(u"frmPopulate"_s);
    setWindowTitle(tr("Select Tags"));
    setModal(true);
    build();
    connectControls();
}

void frmPopulate::build()
{
    m_lstPopulate->setModel(m_lines);
    m_lstPopulate->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_lstPopulate->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_lstPopulate->setUniformItemSizes(true); // else each of many thousand lines is measured
    m_lstPopulate->setAccessibleName(tr("Tags of the P&ID database"));
    m_cmdOk->setDefault(true);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdOk);
    buttons->addWidget(m_cmdCancel);
    buttons->addWidget(m_cmdHelp);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_lstPopulate, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_lstPopulate->setFocus();
}

void frmPopulate::connectControls()
{
    connect(m_cmdOk, &QPushButton::clicked, this, &frmPopulate::insertChosen);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdHelp, &QPushButton::clicked, this, [this] {
        app::ShowHelpTopic(this, app::helpTopicManual(), true);
    });
}

// ---- the list

bool frmPopulate::load()
{
    PopulateLines found;
    try {
        found = readLines();
    } catch (const Error& error) {
        tellInPassing(wordsFor(error));
        return false;
    }
    if (found.lines.isEmpty()) {
        toolkit::showFailure(tr("No Record Found"));
        return false;
    }
    m_lines->setLines(found.lines);
    m_vTagDetails = std::move(found.details);
    return true;
}

PopulateLines frmPopulate::readLines() const
{
    const toolkit::BusyPointer busy;
    const auto pid = m_open(m_strPIDDatabase);
    if (!pid) {
        toolkit::showFailure(tr("Main database not found"));
        throw Error(errors::objectNotSet, u"Object variable not set"_s);
    }
    return readPopulateLines(*pid, isServerConfiguration(m_strPIDDatabase));
}

// ---- the tags

std::vector<NewTag> frmPopulate::chosenTags() const
{
    // A selection is asked for as ranges: whether a line is in it would be a search for each line.
    std::vector<bool> chosen(m_vTagDetails.size());
    for (const QItemSelectionRange& range : m_lstPopulate->selectionModel()->selection())
        std::fill(chosen.begin() + range.top(), chosen.begin() + range.bottom() + 1, true);
    std::vector<NewTag> tags;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        if (chosen[i]) {
            tags.push_back(
                {m_lines->lines().at(static_cast<qsizetype>(i)), m_vTagDetails[i][serviceDetail]});
        }
    }
    return tags;
}

/// What there is to tell when it fails.
std::optional<QString> frmPopulate::tryInsert()
{
    const toolkit::BusyPointer busy;
    QString reached;
    Painting painting;
    try {
        insertTags(chosenTags(), [&](const QString& plantItemNo) {
            reached = plantItemNo;
            painting.nowAndThen();
        });
        return std::nullopt;
    } catch (...) {
        const QString what = reached.isEmpty() ? tr("Error while inserting tags.")
                                               : tr("Error while inserting tag '%1'.").arg(reached);
        return toolkit::formB(what, datasheets::currentFailure());
    }
}

void frmPopulate::insertChosen()
{
    const auto failure = tryInsert();
    repaint();
    if (failure)
        toolkit::showFailure(*failure);
    app::mainWindow().OpenIndex(app::g_strIndexFile);
    if (!g_strPopulateFunction.isEmpty())
        frmDuplicate(this).exec();
    if (!failure)
        accept();
}

} // namespace ostrand::pid
