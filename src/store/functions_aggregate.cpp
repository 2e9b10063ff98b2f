// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "store/function_table.h"

#include <sqlite3.h>

#include <cmath>

namespace ostrand::store::functions {

namespace {

/// The value of the first or last row. SQLite gives the memory filled with zeros and takes it back
/// after the final call.
struct OneRow
{
    sqlite3_value* value;
};

void keepFirst(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* state = static_cast<OneRow*>(sqlite3_aggregate_context(context, sizeof(OneRow)));
    if (state != nullptr && state->value == nullptr)
        state->value = sqlite3_value_dup(values[0]);
}

void keepLast(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* state = static_cast<OneRow*>(sqlite3_aggregate_context(context, sizeof(OneRow)));
    if (state == nullptr)
        return;
    sqlite3_value_free(state->value);
    state->value = sqlite3_value_dup(values[0]);
}

void finishOneRow(sqlite3_context* context)
{
    auto* state = static_cast<OneRow*>(sqlite3_aggregate_context(context, 0));
    if (state == nullptr || state->value == nullptr)
        return;
    sqlite3_result_value(context, state->value);
    sqlite3_value_free(state->value);
    state->value = nullptr;
}

/// Running mean and sum of squared distances from it.
struct Spread
{
    sqlite3_int64 count;
    double mean;
    double squares;
};

void addToSpread(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return;
    auto* spread = static_cast<Spread*>(sqlite3_aggregate_context(context, sizeof(Spread)));
    if (spread == nullptr)
        return;
    const double number = sqlite3_value_double(values[0]);
    ++spread->count;
    const double distance = number - spread->mean;
    spread->mean += distance / static_cast<double>(spread->count);
    spread->squares += distance * (number - spread->mean);
}

/// The variance of a sample (`Sample` 1) or of all there is (0), or its root.
template <int Sample, bool Root>
void finishSpread(sqlite3_context* context)
{
    const auto* spread = static_cast<const Spread*>(sqlite3_aggregate_context(context, 0));
    if (spread == nullptr || spread->count <= Sample)
        return;
    const double variance = spread->squares / static_cast<double>(spread->count - Sample);
    sqlite3_result_double(context, Root ? std::sqrt(variance) : variance);
}

void registerAggregate(sqlite3* connection,
                       const char* name,
                       void (*step)(sqlite3_context*, int, sqlite3_value**),
                       void (*finish)(sqlite3_context*))
{
    const int code =
        sqlite3_create_function_v2(connection,
                                   name,
                                   1,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                   nullptr,
                                   nullptr,
                                   step,
                                   finish,
                                   nullptr);
    if (code != SQLITE_OK)
        throw Error(errors::diskError, QString::fromUtf8(sqlite3_errmsg(connection)));
}

} // namespace

void registerAggregates(sqlite3* connection)
{
    registerAggregate(connection, "ostrand_first", keepFirst, finishOneRow);
    registerAggregate(connection, "ostrand_last", keepLast, finishOneRow);
    registerAggregate(connection, "ostrand_stdev", addToSpread, finishSpread<1, true>);
    registerAggregate(connection, "ostrand_stdevp", addToSpread, finishSpread<0, true>);
    registerAggregate(connection, "ostrand_var", addToSpread, finishSpread<1, false>);
    registerAggregate(connection, "ostrand_varp", addToSpread, finishSpread<0, false>);
}

} // namespace ostrand::store::functions
