// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <com/sun/star/uno/XInterface.hpp>
#include <deque>
#include <mutex>

namespace ostrand::spreadsheet::libreoffice {

/// Keeps objects of the application for a while after their last use.
///
/// The application writes its answers and its news on one thread, which drops its own hold on each
/// object that it has written. Where ours was dropped before, that one is the last, and ending a
/// cell or a sheet takes the application's global lock. If its main thread has the lock and is
/// about to tell us something, it waits for that same thread: the application stands still for
/// ever. Whatever a call or an event brings is therefore handed to the keeper.
class ObjectKeeper
{
public:
    /// Safe on any thread. Gives the object back.
    template <typename Interface>
    com::sun::star::uno::Reference<Interface> keep(com::sun::star::uno::Reference<Interface> object)
    {
        hold(object);
        return object;
    }

    /// Another interface of an object, kept as well: as long as it is, asking for it again takes no
    /// call to the application. Raises a UNO exception where the object has none such.
    template <typename Interface, typename Other>
    com::sun::star::uno::Reference<Interface>
    as(const com::sun::star::uno::Reference<Other>& object)
    {
        return keep(com::sun::star::uno::Reference<Interface>(
            object, com::sun::star::uno::UNO_QUERY_THROW));
    }

    /// Lets everything go, as the application is about to end.
    void clear();

private:
    using Clock = std::chrono::steady_clock;
    using Object = com::sun::star::uno::Reference<com::sun::star::uno::XInterface>;
    struct Kept
    {
        Clock::time_point since;
        Object object;
    };

    void hold(const Object& object);

    std::mutex m_mutex;
    std::deque<Kept> m_objects;
};

} // namespace ostrand::spreadsheet::libreoffice
