// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populate_report.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace ostrand::pid {

QString g_strPopulateFunction;
QString g_strPopulateTag;

void clearPopulateReport()
{
    g_strPopulateFunction.clear();
    g_strPopulateTag.clear();
}

void addToPopulateReport(const QString& line)
{
    if (!line.endsWith(u')'))
        return;
    g_strPopulateFunction += line + u',';
    g_strPopulateTag += line.left(line.indexOf(u'(')) + u',';
}

QString populateReport()
{
    const QStringList tags = g_strPopulateTag.split(u',');
    const QStringList lines = g_strPopulateFunction.split(u',');
    QString report;
    for (qsizetype i = 0; i + 1 < tags.size(); ++i) {
        report += tags[i] + QCoreApplication::translate("frmDuplicate", " is renamed as ")
                  + lines.value(i) + u"\r\n"_s;
    }
    return report;
}

} // namespace ostrand::pid
