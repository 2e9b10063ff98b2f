// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/file_name.h"

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {

QString datasheetNameOf(const QString& tag)
{
    return QString(tag + u".xls"_s).replace(u'/', u'-').replace(u'\\', u'-');
}

} // namespace ostrand::datasheets
