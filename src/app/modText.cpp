// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/modText.h"

#include "store/error.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

qsizetype lastSeparator(const QString& path)
{
    const qsizetype at = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    if (at < 0) {
        throw store::Error(store::errors::invalidCall,
                           QCoreApplication::translate("modText", "The path names no folder."));
    }
    return at;
}

} // namespace

bool SeparateFileDir(const QString& path, QString& dir, QString& file)
{
    dir.clear();
    file.clear();
    try {
        const qsizetype at = lastSeparator(path);
        if (at == 0 || at == path.size() - 1)
            return false;
        dir = path.left(at);
        file = path.mid(at + 1);
        return true;
    } catch (const store::Error& error) {
        toolkit::showFailure(
            QCoreApplication::translate("modText", "Error in modText:SeparateFileDir(). ")
            + QString::number(error.number()) + u" : "_s + error.description());
        return false;
    }
}

} // namespace ostrand::app
