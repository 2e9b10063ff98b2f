// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace ostrand::store::odbc {

/// Runs a call on a thread of its own and waits for it. Nothing comes back when the time is over;
/// the thread then goes on alone until its server answers, and keeps alive what the call holds.
template <typename Call>
auto resultWithin(std::chrono::seconds time, Call call) -> std::optional<decltype(call())>
{
    using Result = decltype(call());
    std::packaged_task<Result()> task(std::move(call));
    std::future<Result> result = task.get_future();
    std::thread thread(std::move(task));
    if (result.wait_for(time) != std::future_status::ready) {
        thread.detach();
        return std::nullopt;
    }
    thread.join();
    return result.get();
}

} // namespace ostrand::store::odbc
