// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/sources.h"

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

/// A tie may spell its tag in another case than the index does.
const QString ofTags =
    u" from index, itemDocXRef where itemDocXRef.PlantItemNo = index.PlantItemNo"_s;
/// Entries that are no documents, whatever their role says.
const QString noDocuments =
    u"(select docNo from document where docType = 'NA' or docNo = '**DELETED**')"_s;
const QString inOrder = u" order by index.PlantItemNo, itemDocXRef.docNo"_s;

} // namespace

Source tags(const QStringList& more)
{
    const QStringList shared{tagField,
                             u"CompanyTrackingNumber"_s,
                             u"OperatingUnitNumber"_s,
                             u"ProcessUnitArea"_s,
                             u"MeasureVariable"_s,
                             u"TypeModifier"_s,
                             u"SequenceNo"_s,
                             u"LoopSuffix"_s,
                             u"InstrumentSuffix"_s,
                             u"ServiceDescription"_s,
                             u"LoopNumber"_s,
                             u"LoopTypicalNum"_s,
                             u"InstrumentType"_s,
                             u"EquipOrLineNo"_s,
                             u"Location"_s,
                             u"ProcessSystemNo"_s,
                             u"ConstructionArea"_s,
                             u"ScopeArea"_s,
                             u"ElectricalArea"_s,
                             u"ElectricalAreaClassification"_s,
                             u"PlantItemClassification"_s,
                             u"FireArea"_s,
                             u"WorkArea"_s,
                             u"IOType"_s,
                             u"Manufacturer"_s,
                             u"ModelNumber"_s,
                             u"ManufacturerSerialNumber"_s,
                             u"Supplier"_s,
                             u"SupplierModelNumber"_s,
                             u"BodyMaterial"_s,
                             u"JunctionBoxNumber"_s,
                             u"MarshallingRack"_s,
                             u"MaintenanceRecord"_s,
                             u"SignalType"_s,
                             u"ProcessSetPointValue"_s,
                             u"CalibrationSetPointValue"_s,
                             u"H_H_H_SETTING"_s,
                             u"H_H_SETTING"_s,
                             u"H_SETTING"_s,
                             u"L_SETTING"_s,
                             u"L_L_SETTING"_s,
                             u"L_L_L_SETTING"_s,
                             u"TagType"_s,
                             u"FormatType"_s,
                             u"Remarks"_s,
                             u"TagPath"_s,
                             u"TagFileName"_s};
    return {{u"index"_s}, u"select "_s + (shared + more).join(u", "_s) + u" from index"_s};
}

Subreport header()
{
    return {headerBlock,
            {{u"qryrptindexheader"_s},
             u"select plant, [operating unit], location, contract, company from "
             "qryrptindexheader"_s}};
}

Subreport revisions()
{
    return {revisionBlock,
            {{u"qryIndexRev"_s},
             u"select RevNo, [Date], Description, createdBy, checkedBy, approvedBy from "
             "qryIndexRev order by [Date], RevNo"_s}};
}

Subreport documents(const QStringList& kinds)
{
    const QString list = u"('"_s + kinds.join(u"', '"_s) + u"')"_s;
    return {kinds.front(),
            {{u"itemDocXRef"_s, u"document"_s, u"plDocType"_s, u"index"_s},
             u"select distinct index.PlantItemNo, itemDocXRef.docNo"_s + ofTags
                 + u" and (itemDocXRef.context in "_s + list
                 + u" or itemDocXRef.docNo in (select document.docNo from document, plDocType"
                   " where document.docType = plDocType.docType and plDocType.docType in "_s
                 + list + u")) and itemDocXRef.docNo not in "_s + noDocuments + inOrder},
            tagField};
}

Subreport allDocuments()
{
    return {u"documents"_s,
            {{u"itemDocXRef"_s, u"document"_s, u"index"_s},
             u"select index.PlantItemNo, itemDocXRef.docNo, itemDocXRef.context, document.docType,"
             " document.Title from index, itemDocXRef, document"
             " where itemDocXRef.PlantItemNo = index.PlantItemNo"
             " and document.docNo = itemDocXRef.docNo and document.docNo not in "_s
                 + noDocuments + inOrder},
            tagField};
}

} // namespace ostrand::viewing::reports
