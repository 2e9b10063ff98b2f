// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/statement_catalogue.h"

using namespace Qt::StringLiterals;

namespace ostrand::tests {

namespace {

const QString ft = u"FT-101|Feed|F-101|Field|C:\\DS|FT-101.xls"_s;
const QString pt = u"PT-102|Steam|P-102|Panel|Null|Null"_s;
const QString lt = u"LT-103|Drum|L-103|Field|C:\\DS|LT-103.xls"_s;
const QString tieSheet = u"FT-101|DS-1|Null|DATASHEET|Null|Null|DATASHEET"_s;
const QString tiePid = u"FT-101|PID-1|Null|PID|Null|Null|Null"_s;
const QString mapTag = u"Flow|DATASHEET|D11|Tag|Index"_s;
const QString mapPid = u"Flow|DATASHEET|D12|PID|document"_s;
const QString mapPlant = u"Flow|NOTES|B3|plant|IndexTitleInfo"_s;

std::vector<QueryCase> projectCases()
{
    return {
        {"attribute",
         u"select attributeValue from qryProjectInfo where attributeName = "
         "'DefaultDatasheetFolder';"_s,
         {u"C:\\DS"_s}},
        {"attribute that is missing",
         u"select attributeValue from qryProjectInfo where attributeName = "
         "'DefaultTemplateFolder';"_s,
         {}},
        {"attribute of no value",
         u"select attributeValue from qryProjectInfo where attributeName = 'logo file';"_s,
         {u"Null"_s}},
        {"attribute with an ampersand",
         u"select attributeValue from qryProjectInfo where attributeName = "
         "'DefaultP&IDDatabase';"_s,
         {u"C:\\pid.mdb"_s}},
        {"attribute in other case",
         u"select attributevalue from qryProjectInfo where attributeName = "
         "'defaultdatasheetfolder';"_s,
         {u"C:\\DS"_s}},
        {"two attributes, no blank before or",
         u"select attributeValue from qryProjectInfo where attributeName = "
         "'DefaultP&IDDatabase'or attributeName = 'DefaultDatasheetFolder';"_s,
         {u"C:\\DS"_s, u"C:\\pid.mdb"_s}},
        {"attribute of the table",
         u"Select attributeValue from ProjectInfo where attributeName='DefaultP&IDDatabase'"_s,
         {u"C:\\pid.mdb"_s}},
        {"all attributes",
         u"select * from qryProjectInfo;"_s,
         {u"DefaultDatasheetFolder|C:\\DS|-1"_s,
          u"DefaultP&IDDatabase|C:\\pid.mdb|-1"_s,
          u"plant|North|0"_s,
          u"logo file|Null|-1"_s}},
        {"captions",
         u"select * from FormColumnNames where FormName = 'frmIndex';"_s,
         {u"frmIndex|Tag|Tag number"_s}},
    };
}

std::vector<QueryCase> indexCases()
{
    return {
        {"index in order", u"select * from qryIndex order by Tag"_s, {ft, lt, pt}},
        {"index by another column",
         u"select * from qryIndex order by ServiceDescription"_s,
         {lt, ft, pt}},
        {"one tag", u"select * from qryIndex where Tag = 'PT-102'"_s, {pt}},
        {"one tag in other case", u"select * from qryIndex where Tag = 'ft-101'"_s, {ft}},
        {"path of a tag",
         u"select DatasheetPath, DataSheetFileName from qryIndex where Tag = 'FT-101';"_s,
         {u"C:\\DS|FT-101.xls"_s}},
        {"path in small letters",
         u"select datasheetpath, datasheetfilename from qryindex where tag= 'PT-102';"_s,
         {u"Null|Null"_s}},
        {"distinct paths",
         u"select DISTINCT tag,datasheetpath,datasheetfilename from qryindex"_s,
         {u"FT-101|C:\\DS|FT-101.xls"_s, u"PT-102|Null|Null"_s, u"LT-103|C:\\DS|LT-103.xls"_s}},
        {"capitals",
         u"SELECT TAG,DatasheetPath,DatasheetFileName FROM QRYINDEX"_s,
         {u"FT-101|C:\\DS|FT-101.xls"_s, u"PT-102|Null|Null"_s, u"LT-103|C:\\DS|LT-103.xls"_s}},
        {"table index", u"Select * from Index"_s, {ft, pt, lt}},
        {"tags of a document",
         u"select index.PlantItemNo as Tag from index, itemDocXRef where itemDocXRef.DocNo = "
         "'DS-1'   and itemDocXRef.PlantItemNo = index.PlantItemNo   and index.TagFileName is "
         "not null order by index.PlantItemNo;"_s,
         {u"FT-101"_s, u"LT-103"_s}},
        {"revisions by date",
         u"select * from qryIndexRev order by Date"_s,
         {u"A|2024-01-31|first|ab|cd|ef"_s, u"B|2024-03-01|second|ab|Null|Null"_s}},
        {"revisions by number",
         u"select * from qryIndexRev order by RevNo"_s,
         {u"A|2024-01-31|first|ab|cd|ef"_s, u"B|2024-03-01|second|ab|Null|Null"_s}},
    };
}

std::vector<QueryCase> documentCases()
{
    return {
        {"documents by number",
         u"select * from qryDoc order by docNo"_s,
         {u"**DELETED**|Null|NA|Null|Null"_s,
          u"DS-1|Null|DATASHEET|Null|Null"_s,
          u"LD-1|Null|LOOP DWG|Null|Null"_s,
          u"PID-1|Null|PID|Null|Null"_s,
          u"PO-1|Null|PURCHASE ORDER|Null|Null"_s,
          u"RQ-1|Null|REQUISITION|Null|Null"_s}},
        {"drop-down DATASHEET",
         u"select docNo from qryDoc where docType = 'DATASHEET' or docType = 'NA'"_s,
         {u"**DELETED**"_s, u"DS-1"_s}},
        {"drop-down LOOP DWG",
         u"select docNo from qryDoc where docType = 'LOOP DWG' or docType = 'NA'"_s,
         {u"**DELETED**"_s, u"LD-1"_s}},
        {"drop-down PID",
         u"select docNo from qryDoc where docType = 'PID' or  docType = 'NA'"_s,
         {u"**DELETED**"_s, u"PID-1"_s}},
        {"drop-down PURCHASE ORDER",
         u"select docNo from qryDoc where docType = 'PURCHASE ORDER' or docType = 'NA'"_s,
         {u"**DELETED**"_s, u"PO-1"_s}},
        {"drop-down REQUISITION",
         u"select docNo from qryDoc where docType = 'REQUISITION' or docType = 'NA'"_s,
         {u"**DELETED**"_s, u"RQ-1"_s}},
        {"document cell by type",
         u"select docNo from qryDocXref where Tag = 'FT-101' and  (docType = 'PID' or context = "
         "'PID');"_s,
         {u"PID-1"_s}},
        {"document cell by context",
         u"select docNo from qryDocXref where Tag = 'LT-103' and  (docType = 'DATASHEET' or "
         "context = 'DATASHEET');"_s,
         {u"DS-1"_s}},
        {"ties of a tag", u"select * from qryDocXref where Tag = 'FT-101';"_s, {tieSheet, tiePid}},
        {"ties of a bracketed tag",
         u"select * from qryDocXref where [Tag] = 'FT-101'"_s,
         {tieSheet, tiePid}},
        {"ties in order",
         u"select * from qryDocXref where Tag = 'FT-101' order by docType"_s,
         {tieSheet, tiePid}},
        {"ties of a kind",
         u"select * from qryDocXref where Tag = 'FT-101'   and DocType = 'pid';"_s,
         {tiePid}},
        {"untied documents",
         u"select docNo, docType from qryDoc where docNo not in (select docNo from qryDocXref "
         "where Tag = 'FT-101') and docType <> 'NA';"_s,
         {u"LD-1|LOOP DWG"_s, u"RQ-1|REQUISITION"_s, u"PO-1|PURCHASE ORDER"_s}},
        {"kinds",
         u"select docType from plDocType order by docType;"_s,
         {u"DATASHEET"_s, u"LOOP DWG"_s, u"NA"_s, u"PID"_s, u"PURCHASE ORDER"_s, u"REQUISITION"_s}},
        {"one document",
         u"select * from document where doctype='DATASHEET' and docno = 'DS-1'"_s,
         {u"DS-1|DATASHEET|Null|Null|Null"_s}},
    };
}

std::vector<QueryCase> mapCases()
{
    return {
        {"map rows of a field",
         u"select qryMap.* from qryMap where [DatasheetType] = 'Flow' and [Field] = 'tag' and "
         "[TableName] = 'index';"_s,
         {mapTag}},
        {"map rows of an attribute",
         u"select qryMap.* from qryMap where [DatasheetType] = 'Flow' and [Field] = 'plant' and "
         "[TableName] = 'IndexTitleInfo';"_s,
         {mapPlant}},
        {"map rows of a kind",
         u"select qryMap.* from qryMap where [DatasheetType] = 'Flow' and [Field] = 'PID' and "
         "[TableName] = 'Document';"_s,
         {mapPid}},
        {"map rows of a sheet",
         u"select qryMap.* from qryMap where [DatasheetType] = 'Flow' and [TableName] = "
         "'document' and [Worksheet] = 'DATASHEET'"_s,
         {mapPid}},
        {"map rows of a field on a sheet",
         u"select qryMap.* from qryMap where [DatasheetType] = 'Flow' and [Field] = 'Tag' and "
         "[TableName] = 'index' and [Worksheet] = 'DATASHEET'"_s,
         {mapTag}},
        {"map row of a cell",
         u"SELECT FIELD,TABLENAME FROM MAP WHERE OBJECT = 'D12' AND WORKSHEET= 'DATASHEET' AND "
         "DATASHEETTYPE = 'Flow';"_s,
         {u"PID|document"_s}},
        {"datasheet types",
         u"select * from qryDsType order by ReportNum"_s,
         {u"1|Flow|flow.xlt"_s, u"2|Level|level.xlt"_s}},
        {"logo places",
         u"SELECT DtShtWorksheets.DatasheetType, DtShtWorksheets.WorkSheet, "
         "DtShtWorksheets.LogoAnchor, DtShtWorksheets.DeltaX, DtShtWorksheets.DeltaY, "
         "DtShtWorksheets.DefaultCell, DtShtWorksheets.DefaultSheet From DtShtWorksheets WHERE "
         "(((DtShtWorksheets.DatasheetType)=\"flow\"))"_s,
         {u"Flow|DATASHEET|A1|2.0|2.0|D11|-1"_s, u"Flow|NOTES|A1|2.0|2.0|B14|0"_s}},
    };
}

std::vector<QueryCase> pidCases()
{
    const QStringList all{u"101|FT|2|Feed"_s, u"101|FT|3|Feed"_s, u"102|PT|1|Steam"_s};
    return {
        {"instruments",
         u"SELECT [Components-Instruments].TAG_, [Components-Instruments].FUNCTION_, "
         "[Components-Instruments].ID_COUNT_, [Components-Instruments].SERVICE_ From "
         "[Components-Instruments]WHERE [Components-Instruments].FUNCTION_ IS NOT NULL AND "
         "[Components-Instruments].TAG_ IS NOT NULL order by "
         "[Components-Instruments].FUNCTION_,  [Components-Instruments].TAG_;"_s,
         all},
        {"instruments of a server",
         u"SELECT [PID_Components_Instruments].TAG_, [PID_Components_Instruments].FUNCTION_, "
         "[PID_Components_Instruments].ID_COUNT_, [PID_Components_Instruments].SERVICE_ From "
         "[PID_Components_Instruments]WHERE [PID_Components_Instruments].FUNCTION_ IS NOT NULL "
         "AND [PID_Components_Instruments].TAG_ IS NOT NULL order by "
         "[PID_Components_Instruments].FUNCTION_,  [PID_Components_Instruments].TAG_;"_s,
         all},
        {"count of equals",
         u"Select count(*) as total from [Components-Instruments] WHERE "
         "[Components-Instruments].FUNCTION_ ='ft' AND [Components-Instruments].TAG_ LIKE '101'"_s,
         {u"2"_s}},
        {"count of equals of a server",
         u"Select count(*) as total from [PID_Components_Instruments] WHERE "
         "[PID_Components_Instruments].FUNCTION_ ='ft' AND [PID_Components_Instruments].TAG_ "
         "LIKE '10?'"_s,
         {u"2"_s}},
        {"value of an instrument",
         u"select   SERVICE_ from [Components-Instruments]where FUNCTION_=  'PT' And TAG_ "
         "='102'"_s,
         {u"Steam"_s}},
        {"test of an instrument",
         u"select SERVICE_  from [Components-Instruments]  WHERE FUNCTION_='PT' And TAG_ "
         "='999'; "_s,
         {}},
    };
}

std::vector<ActionCase> settingCases()
{
    return {
        {"attribute",
         u"update qryProjectInfo set attributeValue = 'D:\\New' where attributeName = "
         "'DefaultDatasheetFolder';"_s,
         "SELECT attributeName, attributeValue FROM ProjectInfo WHERE attributeValue LIKE 'D:*'",
         {u"DefaultDatasheetFolder|D:\\New"_s}},
        {"clear a path",
         u"Update qryIndex set DatasheetPath= Null  , DataSheetFileName = Null where "
         "tag='FT-101'"_s,
         "SELECT PlantItemNo FROM \"index\" WHERE TagPath IS NULL AND TagFileName IS NULL",
         {u"FT-101"_s, u"PT-102"_s}},
        {"set a path",
         u"Update qryIndex set DatasheetPath='E:\\it''s' , DataSheetFileName = 'PT-102.xls' where "
         "tag='pt-102';"_s,
         "SELECT TagPath, TagFileName FROM \"index\" WHERE PlantItemNo = 'PT-102'",
         {u"E:\\it's|PT-102.xls"_s}},
        {"set a field",
         u"UPDATE [index] SET [Location] = 'Deck ''A''' WHERE PlantItemNo = 'LT-103';"_s,
         "SELECT Location FROM \"index\" WHERE PlantItemNo = 'LT-103'",
         {u"Deck 'A'"_s}},
        {"set an instrument's field",
         u"UPDATE  [Components-Instruments] SET SERVICE_ = 'Water' WHERE FUNCTION_=  'PT' And "
         "TAG_ ='102';"_s,
         "SELECT TAG_ FROM \"Components-Instruments\" WHERE SERVICE_ = 'Water'",
         {u"102"_s}},
    };
}

std::vector<ActionCase> tieCases()
{
    return {
        {"delete ties of a kind",
         u"delete itemDocXRef.* from itemDocXRef where PlantItemNo = 'FT-101' and   docNo in "
         "(select docNo from qryDocXRef where (docType = 'DATASHEET' or context = 'DATASHEET')  "
         "and Tag = 'FT-101');"_s,
         "SELECT PlantItemNo, docNo FROM itemDocXRef ORDER BY 1, 2",
         {u"FT-101|PID-1"_s, u"LT-103|DS-1"_s}},
        {"delete ties of a two-word kind",
         u"delete itemDocXRef.* from itemDocXRef where PlantItemNo = 'FT-101' and   docNo in "
         "(select docNo from qryDocXRef where (docType = 'LOOP DWG' or context = 'LOOP DWG')   "
         "and Tag = 'FT-101');"_s,
         "SELECT count(*) FROM itemDocXRef",
         {u"3"_s}},
        {"delete ties of a type",
         u"delete itemDocXRef.* from itemDocXRef where PlantItemNo = 'FT-101' and   docNo in "
         "(select docNo from qryDocXRef where docType= 'PID'   and Tag = 'FT-101');"_s,
         "SELECT PlantItemNo, docNo FROM itemDocXRef ORDER BY 1, 2",
         {u"FT-101|DS-1"_s, u"LT-103|DS-1"_s}},
        {"insert through the query",
         u"insert into qryDocXref (Tag, DocNo, context) values ('PT-102', 'LD-1',  'LOOP DWG');"_s,
         "SELECT * FROM itemDocXRef WHERE docNo = 'LD-1'",
         {u"PT-102|LD-1|LOOP DWG"_s}},
        {"new document",
         u"insert into document (docNo, docType) values ( 'DS-2', 'DATASHEET' );"_s,
         "SELECT docNo, docType, Title FROM document WHERE docNo = 'DS-2'",
         {u"DS-2|DATASHEET|Null"_s}},
        {"new tie",
         u"insert into itemDocXRef (PlantItemNo, docNo) values ('PT-102', 'PO-1');"_s,
         "SELECT * FROM itemDocXRef WHERE docNo = 'PO-1'",
         {u"PT-102|PO-1|Null"_s}},
        {"new tie, document first",
         u"insert into itemDocXRef (docNo, PlantItemNo) values ('it''s', 'PT-102');"_s,
         "SELECT * FROM itemDocXRef WHERE PlantItemNo = 'PT-102'",
         {u"PT-102|it's|Null"_s}},
        {"new tie with context",
         u"insert into itemDocXRef (PlantItemNo, docNo, Context) values ('PT-102','RQ-1',"
         "'REQUISITION' );"_s,
         "SELECT * FROM itemDocXRef WHERE docNo = 'RQ-1'",
         {u"PT-102|RQ-1|REQUISITION"_s}},
        {"new kind",
         u"insert into plDocType values ('HOOK-UP');"_s,
         "SELECT docType FROM plDocType WHERE docType LIKE 'H*'",
         {u"HOOK-UP"_s}},
    };
}

template <typename Case>
void append(std::vector<Case>& all, const std::vector<Case>& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

} // namespace

std::vector<QueryCase> queryCases()
{
    std::vector<QueryCase> all = projectCases();
    append(all, indexCases());
    append(all, documentCases());
    append(all, mapCases());
    append(all, pidCases());
    return all;
}

std::vector<ActionCase> actionCases()
{
    std::vector<ActionCase> all = settingCases();
    append(all, tieCases());
    return all;
}

QStringList criteria()
{
    return {u"columnName = 'Tag'"_s, u"DocNo = '**DELETED**'"_s, u"[Tag] = 'FT-101'"_s};
}

QStringList allStatements()
{
    QStringList all = criteria();
    for (const QueryCase& query : queryCases())
        all += query.statement;
    for (const ActionCase& action : actionCases())
        all += action.statement;
    return all;
}

} // namespace ostrand::tests
