// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populate_lines.h"

#include "pid/equal_instruments.h"
#include "pid/instrument.h"
#include "store/database.h"
#include "store/recordset.h"

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::pid {
namespace {

QString listStatement(bool isServer)
{
    return isServer
               ? u"SELECT [PID_Components_Instruments].TAG_, [PID_Components_Instruments]."
                 "FUNCTION_, [PID_Components_Instruments].ID_COUNT_, [PID_Components_Instruments]."
                 "SERVICE_ From [PID_Components_Instruments]WHERE [PID_Components_Instruments]."
                 "FUNCTION_ IS NOT NULL AND [PID_Components_Instruments].TAG_ IS NOT NULL order by "
                 "[PID_Components_Instruments].FUNCTION_,  [PID_Components_Instruments].TAG_;"_s
               : u"SELECT [Components-Instruments].TAG_, [Components-Instruments].FUNCTION_, "
                 "[Components-Instruments].ID_COUNT_, [Components-Instruments].SERVICE_ From "
                 "[Components-Instruments]WHERE [Components-Instruments].FUNCTION_ IS NOT NULL AND "
                 "[Components-Instruments].TAG_ IS NOT NULL order by "
                 "[Components-Instruments].FUNCTION_,  [Components-Instruments].TAG_;"_s;
}

QString serviceOf(const store::Value& service)
{
    return service.isNull() || service.text() == u"Null"_s ? u" "_s : service.text();
}

std::vector<Instrument> readInstruments(const store::Database& pid, bool isServer)
{
    const auto rows = pid.OpenSnapshot(listStatement(isServer));
    const int tag = rows->FieldIndex(u"TAG_"_s);
    const int function = rows->FieldIndex(u"FUNCTION_"_s);
    const int idCount = rows->FieldIndex(u"ID_COUNT_"_s);
    const int service = rows->FieldIndex(u"SERVICE_"_s);
    std::vector<Instrument> instruments;
    for (; !rows->Eof(); rows->MoveNext()) {
        instruments.push_back({.function = rows->Field(function),
                               .tag = rows->Field(tag),
                               .idCount = rows->Field(idCount).text(),
                               .service = serviceOf(rows->Field(service))});
    }
    return instruments;
}

QString inBrackets(int number)
{
    return u'(' + QString::number(number) + u')';
}

} // namespace

PopulateLines readPopulateLines(const store::Database& pid, bool isServer)
{
    const std::vector<Instrument> instruments = readInstruments(pid, isServer);
    const EqualInstruments equals(pid, isServer, instruments);
    PopulateLines found;
    found.lines.reserve(static_cast<qsizetype>(instruments.size()));
    found.details.reserve(instruments.size());
    for (std::size_t current = 0; current < instruments.size();) {
        const qint64 total = equals.count(current);
        if (total < 1)
            throw Error(store::errors::noCurrentRecord, u"An instrument is not its own equal."_s);
        for (int place = 0; place < total; ++place, ++current) {
            if (current == instruments.size())
                throw Error(store::errors::noCurrentRecord, u"There is no current record."_s);
            const Instrument& instrument = instruments[current];
            const QString text = instrument.function.text() + u'-' + instrument.tag.text();
            found.lines << (place == 0 ? text : text + inBrackets(place));
            found.details.push_back(
                {text + inBrackets(place), instrument.idCount, instrument.service});
        }
    }
    return found;
}

} // namespace ostrand::pid
