// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/record_failure.h"

#include "toolkit/prompts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {
namespace {

QString phraseOf(DataControl::Action action)
{
    switch (action) {
    case DataControl::Action::Add:
        return QCoreApplication::translate("record_failure", " adding a record. ");
    case DataControl::Action::Delete:
        return QCoreApplication::translate("record_failure", " deleting a record. ");
    case DataControl::Action::Update:
        break;
    }
    return QCoreApplication::translate("record_failure", " modifying record. ");
}

} // namespace

void tellRecordFailure(DataControl::Action action, const std::optional<store::Error>& pending)
{
    if (!pending)
        return;
    showFailure(QString::number(pending->number())
                + QCoreApplication::translate("record_failure", " : Error while ")
                + phraseOf(action) + pending->description());
}

} // namespace ostrand::toolkit
