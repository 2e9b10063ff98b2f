// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "store/sql/translate.h"

namespace ostrand::store::sql {

/// The error of a statement that is not understood.
inline int syntaxNumber(Verb verb)
{
    switch (verb) {
    case Verb::Select:
        return errors::syntaxInSelect;
    case Verb::Insert:
        return errors::syntaxInInsert;
    case Verb::Update:
        return errors::syntaxInUpdate;
    case Verb::Delete:
        break;
    }
    return errors::invalidExpression;
}

} // namespace ostrand::store::sql
