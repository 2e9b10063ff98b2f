// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The windows of the documents, the index revisions and the reports. The main window takes them
// along when it closes first, so that nothing of it may be touched then.
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "documents/frmDoc.h"
#include "documents/frmDocXref.h"
#include "index/document_columns.h"
#include "index/frmIndex.h"
#include "index/frmIndexRev.h"
#include "toolkit/prompts.h"
#include "viewing/frmRptViewer.h"

#include <QScopeGuard>

namespace ostrand::index {

void frmIndex::mnuEditIndexRev()
{
    const QPointer<frmIndexRev> revisions = new frmIndexRev(this);
    revisions->ShowInfo();
    delete revisions;
}

void frmIndex::mnuDocAll()
{
    const QPointer<documents::frmDoc> documents = new documents::frmDoc(this);
    documents->ShowInfo();
    if (!documents)
        return;
    delete documents;
    showChangedDocuments();
}

void frmIndex::mnuDocRef()
{
    const QString tag = ActiveTag();
    if (documents::g_frmDocXref || tag.isEmpty())
        return;
    const QPointer<frmIndex> self(this);
    documents::showTagDocuments(this, tag);
    if (self)
        showChangedDocuments();
}

void frmIndex::mnuReportIndex()
{
    showReport(2, tr("Error while viewing Instrument Index Report"));
}

void frmIndex::mnuReportAlarmSum()
{
    showReport(1, tr("Error while viewing Controller and Alarm Summary Report"));
}

void frmIndex::mnuReportInstallationDetails()
{
    showReport(4, tr("Error while viewing Installation Details Report"));
}

void frmIndex::mnuReportMaintenance()
{
    showReport(3, tr("Error while viewing Maintenance Report"));
}

void frmIndex::showReport(int number, const QString& failure)
{
    try {
        const QPointer<viewing::frmRptViewer> viewer = new viewing::frmRptViewer(this);
        const auto close = qScopeGuard([&viewer] { delete viewer; });
        viewer->ShowInfo(number);
    } catch (...) {
        toolkit::showFailure(toolkit::formA(failure, datasheets::currentFailure()));
    }
}

/// A datasheet opened from one of the windows needs its tag to stay the current one: the index is
/// then read anew when the datasheet is closed.
void frmIndex::showChangedDocuments()
{
    if (datasheets::g_objXlHndlr && datasheets::g_objXlHndlr->XlAlreadyOpen())
        m_documents->refresh(app::g_strIndexFile);
    else
        LoadIndex();
}

} // namespace ostrand::index
