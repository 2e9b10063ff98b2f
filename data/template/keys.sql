-- SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
-- SPDX-License-Identifier: MIT
--
-- Keys and indexes beside the primary keys, which stand in columns.csv.

CREATE INDEX LoopTypicalNum ON "index" (LoopTypicalNum);

CREATE INDEX documentDocType ON document (docType);

-- One tag may hold one document in several roles, but not twice in the same role. A role that is
-- not told counts as an empty one. The order of columns also serves the look-up of a tag's ties.
CREATE UNIQUE INDEX itemDocXRefTie
ON itemDocXRef (PlantItemNo, docNo, coalesce(context, '') COLLATE JET);

CREATE INDEX itemDocXRefDocNo ON itemDocXRef (docNo);

CREATE UNIQUE INDEX DatasheetTypesDatasheetType ON DatasheetTypes (DatasheetType);

CREATE INDEX MapDatasheetType ON Map (DatasheetType);

CREATE INDEX DtShtWorksheetsDatasheetType ON DtShtWorksheets (DatasheetType);

CREATE UNIQUE INDEX FormColumnNamesColumn ON FormColumnNames (FormName, columnName);
