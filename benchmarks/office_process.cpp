// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "office_process.h"

#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ostrand::bench {

/// What the application says is not for the output, which holds results alone.
void convertInProcess(const QString& profile,
                      const QString& format,
                      const QString& folder,
                      const QString& file)
{
    QProcess office;
    office.setStandardOutputFile(QProcess::nullDevice());
    office.setStandardErrorFile(QProcess::nullDevice());
    office.start(u"" OSTRAND_LIBREOFFICE "/program/soffice"_s,
                 {u"-env:UserInstallation="_s
                      + QString::fromLatin1(QUrl::fromLocalFile(profile).toEncoded()),
                  u"--headless"_s,
                  u"--convert-to"_s,
                  format,
                  u"--outdir"_s,
                  folder,
                  file});
    if (!office.waitForFinished(-1) || office.exitStatus() != QProcess::NormalExit
        || office.exitCode() != 0)
        qFatal("%s cannot be converted", qPrintable(file));
}

} // namespace ostrand::bench
