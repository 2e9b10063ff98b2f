// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"

namespace ostrand::store {

Error::Error(int number, const QString& description)
    : m_number(number),
      m_description(description),
      m_utf8(description.toUtf8())
{
}

} // namespace ostrand::store
