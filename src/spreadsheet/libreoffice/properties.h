// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <initializer_list>

namespace ostrand::spreadsheet::libreoffice {

struct NamedValue
{
    const char* name;
    com::sun::star::uno::Any value;
};

/// Arguments of a load, a store or a dispatch.
inline com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue>
arguments(std::initializer_list<NamedValue> values)
{
    com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue> sequence(
        static_cast<sal_Int32>(values.size()));
    auto* place = sequence.getArray();
    for (const NamedValue& value : values) {
        place->Name = rtl::OUString::createFromAscii(value.name);
        place->Value = value.value;
        ++place;
    }
    return sequence;
}

/// A property of a given type; the type's empty value where it has another.
template <typename T>
T property(const com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>& object,
           const char* name)
{
    T value{};
    object->getPropertyValue(rtl::OUString::createFromAscii(name)) >>= value;
    return value;
}

} // namespace ostrand::spreadsheet::libreoffice
