// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/program.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

QString& otherFolder()
{
    static QString folder;
    return folder;
}

} // namespace

QString productTitle()
{
    return u"Ostrand Instrument Datasheets"_s;
}

QString shortTitle()
{
    return u"Ostrand Datasheets"_s;
}

QString buildDate()
{
    return u"March 29, 2012"_s;
}

QString updateVersion()
{
    return u"2013.201203299"_s;
}

QString installationFolder()
{
    return otherFolder().isEmpty() ? QCoreApplication::applicationDirPath() : otherFolder();
}

void setInstallationFolder(const QString& folder)
{
    otherFolder() = folder;
}

void nameApplication()
{
    QCoreApplication::setOrganizationName(u"Ostrand"_s);
    QCoreApplication::setApplicationName(productTitle());
    QCoreApplication::setApplicationVersion(updateVersion());
}

} // namespace ostrand::app
