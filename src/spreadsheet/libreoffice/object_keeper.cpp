// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/object_keeper.h"

#include <utility>
#include <vector>

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// Far longer than the application takes to drop what it has written.
constexpr std::chrono::seconds keepingTime{3};

} // namespace

void ObjectKeeper::hold(const Object& object)
{
    if (!object.is())
        return;
    std::vector<Kept> old; // ends outside the lock, as letting go is a call to the application
    const Clock::time_point now = Clock::now();
    const std::scoped_lock lock(m_mutex);
    while (!m_objects.empty() && now - m_objects.front().since > keepingTime) {
        old.push_back(std::move(m_objects.front()));
        m_objects.pop_front();
    }
    m_objects.push_back({now, object});
}

void ObjectKeeper::clear()
{
    std::deque<Kept> all;
    const std::scoped_lock lock(m_mutex);
    all.swap(m_objects);
}

} // namespace ostrand::spreadsheet::libreoffice
