// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/value.h"

#include <span>

struct sqlite3;

/// The functions behind translated statements, as plain functions over values. A failure is
/// raised as an `Error`.
namespace ostrand::store::functions {

using Arguments = std::span<const Value>;

enum class Nulls {
    Pass, ///< a Null argument makes the result Null without a call
    Take  ///< the function sees Nulls
};

struct Entry
{
    const char* name; ///< as statements call it
    int least;
    int most; ///< -1: any number
    Nulls nulls;
    Value (*function)(Arguments);
};

std::span<const Entry> textFunctions();
std::span<const Entry> numberFunctions();
std::span<const Entry> dateFunctions();

/// `Format` of a value by a pattern or a named format.
Value formatted(Arguments arguments);

void registerAggregates(sqlite3* connection);
void registerLike(sqlite3* connection);

/// Raises what a value of the wrong kind is refused for.
[[noreturn]] void refuseType();
[[noreturn]] void refuseArgument(const char* function);

/// The value as a number; raises a type mismatch for a text that is none.
double strictNumber(const Value& value);

} // namespace ostrand::store::functions
