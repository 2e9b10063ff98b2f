// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/index_columns.h"

using namespace Qt::StringLiterals;

namespace ostrand::index {
namespace {

using toolkit::GridColumn;

GridColumn bound(const QString& name)
{
    return {.name = name, .field = name, .caption = name};
}

GridColumn boundWithButton(const QString& name)
{
    return {
        .name = name, .field = name, .caption = name, .style = GridColumn::Style::TextWithButton};
}

GridColumn document(const QString& name)
{
    return {.name = name, .field = QString(), .caption = name};
}

} // namespace

std::vector<GridColumn> indexColumns()
{
    return {
        bound(u"Tag"_s),
        bound(u"InstrumentType"_s),
        bound(u"ServiceDescription"_s),
        bound(u"LoopNumber"_s),
        bound(u"EquipOrLineNo"_s),
        bound(u"Location"_s),
        bound(u"Manufacturer"_s),
        bound(u"ModelNumber"_s),
        bound(u"BodyMaterial"_s),
        document(u"PID"_s),
        document(u"Loop Dwg"_s),
        document(u"Requisition"_s),
        document(u"Purchase Order"_s),
        document(u"Datasheet"_s),
        bound(u"DatasheetPath"_s),
        boundWithButton(u"DataSheetFileName"_s),
        bound(u"SignalType"_s),
        bound(u"ProcessSetPointValue"_s),
        bound(u"ProcessRangeValue"_s),
        bound(u"CalibrationSetPointValue"_s),
        bound(u"CalibrationRangeValue"_s),
        bound(u"ScaleSetPointValue"_s),
        bound(u"ScaleRangeValue"_s),
        bound(u"H_H_H_SETTING"_s),
        bound(u"H_H_SETTING"_s),
        bound(u"H_SETTING"_s),
        bound(u"L_SETTING"_s),
        bound(u"L_L_SETTING"_s),
        bound(u"L_L_L_SETTING"_s),
        bound(u"ProcessUnitArea"_s),
        bound(u"OperatingUnitNumber"_s),
        bound(u"ElectricalArea"_s),
        bound(u"ConstructionArea"_s),
        boundWithButton(u"Remarks"_s),
    };
}

const std::array<DocumentKind, 5>& documentKinds()
{
    // Where an insert writes two blanks, or a condition ends in one, they mean nothing to the
    // engine.
    static const std::array<DocumentKind, 5> kinds{{
        {u"DATASHEET",
         column::datasheet,
         u"cmbDocDatasheet",
         u"dbDocDatasheet",
         u"select docNo from qryDoc where docType = 'DATASHEET' or docType = 'NA'",
         u"(docType = 'DATASHEET' or context = 'DATASHEET')",
         u"', 'DATASHEET');"},
        {u"PID",
         column::pid,
         u"cmbDocPid",
         u"dbDocPid",
         u"select docNo from qryDoc where docType = 'PID' or  docType = 'NA'",
         u"(docType = 'PID' or context = 'PID')",
         u"', 'PID');"},
        {u"LOOP DWG",
         column::loopDwg,
         u"cmbDocLoopDwg",
         u"dbDocLoopDwg",
         u"select docNo from qryDoc where docType = 'LOOP DWG' or docType = 'NA'",
         u"(docType = 'LOOP DWG' or context = 'LOOP DWG') ",
         u"',  'LOOP DWG');"},
        {u"REQUISITION",
         column::requisition,
         u"cmbDocReq",
         u"dbDocReq",
         u"select docNo from qryDoc where docType = 'REQUISITION' or docType = 'NA'",
         u"(docType = 'REQUISITION' or context = 'REQUISITION') ",
         u"', 'REQUISITION');"},
        {u"PURCHASE ORDER",
         column::purchaseOrder,
         u"cmbDocPO",
         u"dbDocPO",
         u"select docNo from qryDoc where docType = 'PURCHASE ORDER' or docType = 'NA'",
         u"(docType = 'PURCHASE ORDER' or context = 'PURCHASE ORDER') ",
         u"', 'PURCHASE ORDER');"},
    }};
    return kinds;
}

} // namespace ostrand::index
