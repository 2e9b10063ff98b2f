// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populate_insert.h"

#include "app/state.h"
#include "pid/populate_report.h"
#include "store/database.h"
#include "store/recordset.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

/// Texts as they are stored: a tag that differs in case alone is not known, though the index
/// refuses it.
QSet<QString> knownTags(const store::Database& project)
{
    const auto lookup = project.OpenSnapshot(u"Select PlantItemNo from Index"_s);
    QSet<QString> known;
    known.reserve(lookup->knownRows());
    for (; !lookup->Eof(); lookup->MoveNext())
        known.insert(lookup->Field(0).text());
    return known;
}

class Inserting
{
public:
    explicit Inserting(const store::Database& project)
        : m_target(project.OpenRecordset(u"Index"_s)),
          m_plantItemNo(m_target->FieldIndex(u"PlantItemNo"_s)),
          m_service(m_target->FieldIndex(u"ServiceDescription"_s))
    {
        if (!m_target->Eof() && !m_target->Bof())
            m_target->MoveLast();
    }

    void insert(const NewTag& tag)
    {
        m_target->AddNew();
        m_target->SetField(m_plantItemNo, tag.plantItemNo);
        if (!tag.service.isEmpty())
            m_target->SetField(m_service, tag.service);
        m_target->Update();
        m_target->SetBookmark(m_target->LastModified());
        addToPopulateReport(tag.plantItemNo);
    }

private:
    std::unique_ptr<store::Recordset> m_target;
    int m_plantItemNo;
    int m_service;
};

/// Without a commit nothing was stored of what the report tells.
void commit(store::Database::WriteScope& writes)
{
    try {
        writes.Commit();
    } catch (const store::Error&) {
        clearPopulateReport();
        throw;
    }
}

/// Keeps what was written before a failure, which is the one to be told of.
void commitAfterFailure(store::Database::WriteScope& writes) noexcept
{
    try {
        writes.Commit();
    } catch (const store::Error&) {
        clearPopulateReport();
    }
}

} // namespace

void insertTags(const std::vector<NewTag>& tags, const PopulateProgress& progress)
{
    clearPopulateReport();
    const store::Database project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    const QSet<QString> known = knownTags(project);
    Inserting inserting(project);
    auto writes = project.writeScope();
    try {
        for (const NewTag& tag : tags) {
            if (known.contains(tag.plantItemNo))
                continue;
            progress(tag.plantItemNo);
            inserting.insert(tag);
        }
    } catch (...) {
        commitAfterFailure(writes);
        throw;
    }
    progress({});
    commit(writes);
}

} // namespace ostrand::pid
