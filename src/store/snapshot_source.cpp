// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/snapshot_source.h"

#include "store/error.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

[[noreturn]] void refuse()
{
    throw Error(errors::notUpdatable, u"The rows of this statement are read-only."_s);
}

} // namespace

SnapshotSource::SnapshotSource(QStringList names)
    : m_names(std::move(names))
{
}

bool SnapshotSource::readFirstKeys(std::vector<qint64>& keys)
{
    keys = readAllKeys();
    return true;
}

std::vector<qint64> SnapshotSource::readAllKeys()
{
    m_rows = readRows();
    std::vector<qint64> keys(m_rows.size());
    std::iota(keys.begin(), keys.end(), 0);
    return keys;
}

const Row* SnapshotSource::row(const std::vector<qint64>& keys, int position)
{
    return &m_rows[static_cast<std::size_t>(keys[static_cast<std::size_t>(position)])];
}

std::vector<qint64> SnapshotSource::find(const QString& /*criterion*/)
{
    throw Error(errors::notSupported, u"Rows of this statement cannot be searched."_s);
}

qint64 SnapshotSource::insert(const Changes& /*changes*/)
{
    refuse();
}

void SnapshotSource::update(qint64 /*key*/, const Row& /*read*/, const Changes& /*changes*/)
{
    refuse();
}

void SnapshotSource::remove(qint64 /*key*/, const Row& /*read*/)
{
    refuse();
}

} // namespace ostrand::store
