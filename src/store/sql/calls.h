// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/sql/parser.h"

namespace ostrand::store::sql {

/// How calls of one function of the dialect are written.
struct FunctionRule
{
    enum class Form { Call, Aggregate, Extreme, Choice, NullTest, NullReplacement, Date, Now };

    QStringView name;
    std::size_t least = 1; ///< arguments
    std::size_t most = 1;
    Form form = Form::Call;
    const char* target = ""; ///< the function that SQLite is to call
};

/// The rule of a function by its name in any case, or nullptr.
const FunctionRule* findFunction(const QString& name);

bool isAggregate(const FunctionRule& rule);

/// A call whose number of arguments is within the rule.
Expression writeCall(const FunctionRule& rule, const std::vector<Expression>& arguments);

} // namespace ostrand::store::sql
