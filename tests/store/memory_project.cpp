// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/memory_project.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace ostrand::tests {

namespace {

constexpr char schema[] = R"sql(
CREATE TABLE "index" (
    PlantItemNo TEXT COLLATE JET PRIMARY KEY, ServiceDescription TEXT COLLATE JET,
    LoopNumber TEXT COLLATE JET, Location TEXT COLLATE JET, TagPath TEXT COLLATE JET,
    TagFileName TEXT COLLATE JET) STRICT;
CREATE TABLE plDocType (docType TEXT COLLATE JET PRIMARY KEY) STRICT;
CREATE TABLE document (
    docNo TEXT COLLATE JET PRIMARY KEY, docType TEXT COLLATE JET, Title TEXT COLLATE JET,
    Path TEXT COLLATE JET, Filename TEXT COLLATE JET) STRICT;
CREATE TABLE itemDocXRef (
    PlantItemNo TEXT COLLATE JET, docNo TEXT COLLATE JET, context TEXT COLLATE JET) STRICT;
CREATE UNIQUE INDEX oneTie ON itemDocXRef (PlantItemNo, docNo, coalesce(context, ''));
CREATE TABLE ProjectInfo (
    attributeName TEXT COLLATE JET PRIMARY KEY, attributeValue TEXT COLLATE JET,
    static INTEGER) STRICT;
CREATE TABLE Map (
    DatasheetType TEXT COLLATE JET, Worksheet TEXT COLLATE JET, object TEXT COLLATE JET,
    Field TEXT COLLATE JET, TableName TEXT COLLATE JET) STRICT;
CREATE TABLE DtShtWorksheets (
    DatasheetType TEXT COLLATE JET, WorkSheet TEXT COLLATE JET, LogoAnchor TEXT COLLATE JET,
    DeltaX REAL, DeltaY REAL, DefaultCell TEXT COLLATE JET, DefaultSheet INTEGER) STRICT;
CREATE TABLE FormColumnNames (
    FormName TEXT COLLATE JET, columnName TEXT COLLATE JET, DisplayName TEXT COLLATE JET) STRICT;
CREATE TABLE IndexRev (
    RevNo TEXT COLLATE JET, Date TEXT, Description TEXT COLLATE JET, createdBy TEXT COLLATE JET,
    checkedBy TEXT COLLATE JET, approvedBy TEXT COLLATE JET) STRICT;
CREATE TABLE DsType (
    ReportNum INTEGER, DatasheetType TEXT COLLATE JET, FileName TEXT COLLATE JET) STRICT;
CREATE TABLE "Components-Instruments" (
    TAG_ TEXT COLLATE JET, FUNCTION_ TEXT COLLATE JET, ID_COUNT_ INTEGER,
    SERVICE_ TEXT COLLATE JET) STRICT;
CREATE TABLE PID_Components_Instruments (
    TAG_ TEXT, FUNCTION_ TEXT, ID_COUNT_ INTEGER, SERVICE_ TEXT) STRICT;
CREATE VIEW qryIndex AS SELECT PlantItemNo AS Tag, ServiceDescription, LoopNumber, Location,
    TagPath AS DatasheetPath, TagFileName AS DataSheetFileName FROM "index";
CREATE TRIGGER updateIndex INSTEAD OF UPDATE ON qryIndex BEGIN
    UPDATE "index" SET PlantItemNo = new.Tag, TagPath = new.DatasheetPath,
        TagFileName = new.DataSheetFileName WHERE PlantItemNo = old.Tag;
END;
CREATE VIEW qryDoc AS SELECT docNo, Title, docType, Path, Filename FROM document;
CREATE VIEW qryDocXref AS SELECT x.PlantItemNo AS Tag, x.docNo AS docNo, d.Title AS Title,
    d.docType AS docType, d.Path AS Path, d.Filename AS Filename, x.context AS context
    FROM itemDocXRef x JOIN document d ON d.docNo = x.docNo;
CREATE TRIGGER insertXref INSTEAD OF INSERT ON qryDocXref BEGIN
    INSERT INTO itemDocXRef VALUES (new.Tag, new.docNo, new.context);
END;
CREATE VIEW qryDsType AS SELECT * FROM DsType;
CREATE VIEW qryIndexRev AS SELECT * FROM IndexRev;
CREATE VIEW qryMap AS SELECT * FROM Map;
CREATE VIEW qryProjectInfo AS SELECT * FROM ProjectInfo;
CREATE TRIGGER updateInfo INSTEAD OF UPDATE ON qryProjectInfo BEGIN
    UPDATE ProjectInfo SET attributeName = new.attributeName,
        attributeValue = new.attributeValue WHERE attributeName = old.attributeName;
END;
)sql";

constexpr char rows[] = R"sql(
INSERT INTO "index" VALUES
    ('FT-101', 'Feed', 'F-101', 'Field', 'C:\DS', 'FT-101.xls'),
    ('PT-102', 'Steam', 'P-102', 'Panel', NULL, NULL),
    ('LT-103', 'Drum', 'L-103', 'Field', 'C:\DS', 'LT-103.xls');
INSERT INTO plDocType VALUES ('DATASHEET'), ('PID'), ('LOOP DWG'), ('REQUISITION'),
    ('PURCHASE ORDER'), ('NA');
INSERT INTO document (docNo, docType) VALUES ('**DELETED**', 'NA'), ('DS-1', 'DATASHEET'),
    ('PID-1', 'PID'), ('LD-1', 'LOOP DWG'), ('RQ-1', 'REQUISITION'), ('PO-1', 'PURCHASE ORDER');
INSERT INTO itemDocXRef VALUES ('FT-101', 'DS-1', 'DATASHEET'), ('FT-101', 'PID-1', NULL),
    ('LT-103', 'DS-1', 'DATASHEET');
INSERT INTO ProjectInfo VALUES ('DefaultDatasheetFolder', 'C:\DS', -1),
    ('DefaultP&IDDatabase', 'C:\pid.mdb', -1), ('plant', 'North', 0), ('logo file', NULL, -1);
INSERT INTO Map VALUES ('Flow', 'DATASHEET', 'D11', 'Tag', 'Index'),
    ('Flow', 'DATASHEET', 'D12', 'PID', 'document'),
    ('Flow', 'NOTES', 'B3', 'plant', 'IndexTitleInfo'),
    ('Level', 'DATASHEET', 'D11', 'Tag', 'index');
INSERT INTO DtShtWorksheets VALUES ('Flow', 'DATASHEET', 'A1', 2, 2, 'D11', -1),
    ('Flow', 'NOTES', 'A1', 2, 2, 'B14', 0);
INSERT INTO FormColumnNames VALUES ('frmIndex', 'Tag', 'Tag number'), ('frmDoc', 'docNo', 'No');
INSERT INTO IndexRev VALUES ('B', '2024-03-01', 'second', 'ab', NULL, NULL),
    ('A', '2024-01-31', 'first', 'ab', 'cd', 'ef');
INSERT INTO DsType VALUES (2, 'Level', 'level.xlt'), (1, 'Flow', 'flow.xlt');
INSERT INTO "Components-Instruments" VALUES ('102', 'PT', 1, 'Steam'), ('101', 'FT', 2, 'Feed'),
    ('101', 'FT', 3, 'Feed'), (NULL, 'XX', 4, 'none');
INSERT INTO PID_Components_Instruments SELECT * FROM "Components-Instruments";
)sql";

QString shown(sqlite3_stmt* statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return u"Null"_s;
    const auto* text = static_cast<const char*>(sqlite3_column_blob(statement, column));
    if (sqlite3_column_type(statement, column) != SQLITE_TEXT)
        return QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

} // namespace

MemoryProject::MemoryProject(bool tables)
{
    sqlite3* opened = nullptr;
    sqlite3_open(":memory:", &opened);
    m_connection.reset(opened);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    store::registerCollation(opened);
    store::registerFunctions(opened);
    if (!tables)
        return;
    execute(schema);
    execute(rows);
}

void MemoryProject::fail(const QByteArray& sql) const
{
    const QByteArray message = sql + '\n' + sqlite3_errmsg(connection());
    throw std::runtime_error(message.toStdString());
}

void MemoryProject::execute(const char* sql) const
{
    if (sqlite3_exec(connection(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(sql);
}

StatementHandle MemoryProject::prepare(const QByteArray& sql, const QStringList& literals) const
{
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(connection(), sql.constData(), -1, &prepared, nullptr) != SQLITE_OK)
        return {};
    StatementHandle statement(prepared);
    for (int i = 0; i < literals.size(); ++i) {
        const QByteArray text = literals[i].toUtf8();
        sqlite3_bind_text(
            prepared, i + 1, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    return statement;
}

QStringList MemoryProject::rowsOf(const QByteArray& sql, const QStringList& literals) const
{
    const StatementHandle statement = prepare(sql, literals);
    if (!statement)
        fail(sql);
    QStringList result;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
        QStringList values;
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
            values += shown(statement.get(), i);
        result += values.join(u'|');
    }
    if (code != SQLITE_DONE)
        fail(sql);
    return result;
}

QStringList MemoryProject::run(const QString& statement) const
{
    const store::sql::TokenList tokens = store::sql::tokenise(statement);
    return rowsOf(store::sql::translate(tokens).sql, tokens.literals);
}

QStringList MemoryProject::columnsOf(const QString& statement) const
{
    const store::sql::TokenList tokens = store::sql::tokenise(statement);
    const StatementHandle prepared = prepare(store::sql::translate(tokens).sql, tokens.literals);
    QStringList names;
    for (int i = 0; i < sqlite3_column_count(prepared.get()); ++i)
        names += QString::fromUtf8(sqlite3_column_name(prepared.get(), i));
    return names;
}

} // namespace ostrand::tests
