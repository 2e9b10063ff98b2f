// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "floor_table.h"

namespace ostrand::bench {

/// The floor of the index window: the rows of the tags with their documents.
class FloorIndex final : public FloorTable
{
public:
    FloorIndex();

protected:
    std::vector<Statement> prepareStatements() override;
    QStringList readRow(long long key) override;
};

} // namespace ostrand::bench
