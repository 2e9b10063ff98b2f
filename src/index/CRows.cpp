// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/CRows.h"

#include "store/error.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::index {
namespace {

constexpr int duplicateItem = 457;

} // namespace

void RowCollection::Add(const store::Value& item, const QString& key)
{
    if (!m_items.emplace(key, item).second)
        throw Error(duplicateItem, u"The key stands for an element of the collection already"_s);
}

const store::Value& RowCollection::Item(const QString& key) const
{
    const auto found = m_items.find(key);
    if (found == m_items.end())
        throw Error(store::errors::invalidCall, u"The collection has no such key"_s);
    return found->second;
}

CRows::CRows()
    : m_row(std::make_unique<RowCollection>())
{
}

RowCollection* CRows::GetRowCollection() const
{
    try {
        if (!m_row)
            throw Error(store::errors::objectNotSet, u"Object variable not set"_s);
        return m_row.get();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(
            QCoreApplication::translate("CRows", "Error while getting row. "), error));
        return nullptr;
    }
}

} // namespace ostrand::index
