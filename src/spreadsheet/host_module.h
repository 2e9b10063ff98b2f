// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/host.h"

namespace ostrand::spreadsheet {

/// A spreadsheet application as a module offers it. The module is loaded on first use, so that the
/// program starts and keeps its index where no spreadsheet application is installed.
class Host
{
public:
    virtual ~Host() = default;
    virtual std::shared_ptr<Application> CreateObject(const HostSettings& settings) = 0;
    virtual void end() = 0;
    virtual qint64 process() const = 0;
};

/// The one function of a module, by this name: gives its host, which the module owns.
inline constexpr const char* hostFunction = "ostrandSpreadsheetHost";
using HostFunction = Host* (*)();

} // namespace ostrand::spreadsheet
