// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/frmLocateFolder.h"

#include "app/folder_list.h"
#include "app/places.h"
#include "app/program.h"
#include "app/project_attributes.h"
#include "app/state.h"
#include "toolkit/data_grid.h"
#include "toolkit/file_system.h"
#include "toolkit/folders.h"
#include "toolkit/named.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"
#include "toolkit/twips.h"

#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;
using ostrand::store::Error;
using ostrand::toolkit::named;
using ostrand::toolkit::px;

namespace ostrand::app {
namespace {

constexpr int designWidth = 7200;
constexpr int designHeight = 6000;
constexpr int badFileName = 52;

/// The place that a folder lies in: the one with the longest path.
int placeOf(const QComboBox& places, const QString& folder)
{
    int best = -1;
    qsizetype bestLength = -1;
    for (int i = 0; i < places.count(); ++i) {
        const QString root = places.itemData(i).toString();
        const bool isWithin =
            folder == root || folder.startsWith(root.endsWith(u'/') ? root : root + u'/');
        if (isWithin && root.size() > bestLength) {
            best = i;
            bestLength = root.size();
        }
    }
    return best;
}

/// A name that leads out of the folder, or nowhere, could have the user delete what he does not
/// see.
void requireFolderName(const QString& name)
{
    const QStringList parts =
        QDir::fromNativeSeparators(toolkit::filePath(name)).split(u'/', Qt::SkipEmptyParts);
    const bool leadsOut = std::any_of(parts.begin(), parts.end(), [](const QString& part) {
        return part == "."_L1 || part == ".."_L1;
    });
    if (parts.isEmpty() || leadsOut)
        throw Error(badFileName, u"Bad file name or number"_s);
}

} // namespace

frmLocateFolder::frmLocateFolder(QWidget* parent)
    : QDialog(parent),
      m_Drive1(named(new QComboBox, u"Drive1"_s)),
      m_lblPath(named(new QLabel, u"lblPath"_s)),
      m_Dir1(named(new FolderList, u"Dir1"_s)),
      m_OKButton(named(new QPushButton(tr("&OK")), u"OKButton"_s)),
      m_cmdCancel(named(new QPushButton(tr("&Cancel")), u"cmdCancel"_s)),
      m_cmdNetwork(named(new QPushButton(tr("Net&work...")), u"cmdNetwork"_s)),
      m_cmdNewFld(named(new QPushButton(tr("&New Folder")), u"cmdNewFld"_s))
{
    setObjectName(u"frmLocateFolder"_s);
    setModal(true);
    m_Drive1->setAccessibleName(tr("Drives"));
    m_Dir1->setAccessibleName(tr("Folders"));
    m_lblPath->setAccessibleName(tr("Folder"));
    m_lblPath->setTextFormat(Qt::PlainText);
    m_lblPath->setWordWrap(true);
    m_lblPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_cmdNewFld->hide();
    m_OKButton->setDefault(true);
    layOut();
    connectControls();
}

void frmLocateFolder::layOut()
{
    auto* folders = new QVBoxLayout;
    folders->addWidget(m_Drive1);
    folders->addWidget(m_lblPath);
    folders->addWidget(m_Dir1, 1);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_OKButton);
    buttons->addWidget(m_cmdCancel);
    buttons->addWidget(m_cmdNetwork);
    buttons->addWidget(m_cmdNewFld);
    buttons->addStretch();

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(folders, 1);
    layout->addLayout(buttons);
    resize(px(designWidth, this), px(designHeight, this));
    m_Dir1->setFocus();
}

void frmLocateFolder::connectControls()
{
    connect(m_Drive1, &QComboBox::activated, this, &frmLocateFolder::changeDrive);
    connect(m_Dir1, &FolderList::folderChosen, this, &frmLocateFolder::openPlace);
    connect(m_OKButton, &QPushButton::clicked, this, &frmLocateFolder::OKButton);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_cmdNetwork, &QPushButton::clicked, this, &frmLocateFolder::cmdNetwork);
    connect(m_cmdNewFld, &QPushButton::clicked, this, &frmLocateFolder::cmdNewFld);
}

void frmLocateFolder::ShowInfo(toolkit::DataGrid& grid, Mode mode)
{
    m_grid = &grid;
    m_mode = mode;
    try {
        load();
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while loading Instrument Index Title Window"), error));
        return;
    }
    exec();
}

void frmLocateFolder::load()
{
    m_Drive1->clear();
    for (const Place& place : mountedPlaces())
        m_Drive1->addItem(place.name == place.path
                              ? place.name
                              : place.name + u" ("_s + QDir::toNativeSeparators(place.path) + u')',
                          place.path);
    showFolder(installationFolder());
    const bool isForDatasheets = m_mode == Mode::DatasheetFolder;
    setWindowTitle(isForDatasheets ? tr("Locate Datasheets Default Folder")
                                   : tr("Locate Templates Default Folder"));
    m_cmdNewFld->setVisible(isForDatasheets);
}

/// At its end the window lets go of the grid.
void frmLocateFolder::done(int result)
{
    m_grid.clear();
    m_cmdNewFld->hide();
    QDialog::done(result);
}

// ---- moving about

/// A drive or a place that is not there any more counts as a device that is gone.
void frmLocateFolder::showFolder(const QString& path)
{
    try {
        m_Dir1->setPath(path);
    } catch (const Error& error) {
        if (error.number() == toolkit::fileErrors::pathNotFound && m_Drive1->findData(path) >= 0)
            throw Error(toolkit::fileErrors::deviceUnavailable, u"Device unavailable"_s);
        throw;
    }
    showPath();
}

void frmLocateFolder::showPath()
{
    m_lblPath->setText(m_Dir1->path());
    m_Drive1->setCurrentIndex(placeOf(*m_Drive1, QDir::fromNativeSeparators(m_Dir1->path())));
}

void frmLocateFolder::changeDrive(int index)
{
    openPlace(m_Drive1->itemData(index).toString());
}

void frmLocateFolder::openPlace(const QString& path)
{
    try {
        showFolder(path);
    } catch (const Error& error) {
        showPath();
        toolkit::showFailure(error.number() == toolkit::fileErrors::deviceUnavailable
                                 ? error.description()
                                 : toolkit::formB(tr("Error while accessing drive"), error));
    }
}

void frmLocateFolder::cmdNetwork()
{
    const QString address = toolkit::promptHost()
                                .inputBox(tr("Type network address:"), tr("Network address"))
                                .value_or(QString());
    if (address.isEmpty())
        return;
    try {
        showFolder(address);
    } catch (const Error& error) {
        if (error.number() == toolkit::fileErrors::deviceUnavailable)
            toolkit::showFailure(error.description());
        else if (error.number() == toolkit::fileErrors::pathNotFound)
            toolkit::showNotice(tr("Path ") + address
                                + tr(" is not valid or is not shared. Try again"));
        else
            toolkit::showFailure(toolkit::formB(tr("Error while accessing drive"), error));
    }
}

void frmLocateFolder::cmdNewFld()
{
    const QString name =
        toolkit::promptHost()
            .inputBox(tr("Enter the name for creating new folder"), tr("Create Folder"))
            .value_or(QString());
    if (name.isEmpty())
        return;
    try {
        makeFolder(name);
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::procedureFailure(error, u"cmdNewFld_Click"_s, u"frmLocateFolder"_s));
    }
}

void frmLocateFolder::makeFolder(const QString& name)
{
    requireFolderName(name);
    const QString folder = toolkit::joinPath(m_Dir1->path(), name);
    if (toolkit::folderExists(folder)) {
        if (!toolkit::askYesNo(tr("Folder already exists.  Do you wish to overwrite?")))
            return;
        toolkit::deleteFolder(folder);
    }
    toolkit::createFolder(folder);
    m_Dir1->setPath(m_Dir1->path());
    m_Dir1->select(name);
}

// ---- the result

void frmLocateFolder::OKButton()
{
    try {
        storeFolder();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(
            tr("Error while storing default folders in project information"), error));
        return;
    }
    accept();
}

void frmLocateFolder::storeFolder()
{
    if (!m_grid)
        throw Error(store::errors::objectNotSet, u"Object variable not set"_s);
    const QString attribute = m_grid->Columns(infoColumn::name).Value().text();
    const QString folder = m_Dir1->path();
    auto value = m_grid->Columns(infoColumn::value);
    if (m_mode == Mode::TemplateFolder) {
        if (attribute == attributeTemplateFolder)
            value.setValue(folder);
        return;
    }
    if (attribute != attributeDatasheetFolder)
        return;
    g_blnFolderChanged = value.Value().text() != folder;
    if (g_blnFolderChanged) {
        g_strNewDatasheetFolder = folder;
        value.setValue(folder);
    }
}

} // namespace ostrand::app
