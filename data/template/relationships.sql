-- SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
-- SPDX-License-Identifier: MIT
--
-- Relationships that need more than a foreign key. A tie may be written before the row of its tag
-- is, so itemDocXRef has no foreign key to index; these triggers keep the two together instead.

CREATE TRIGGER indexDelete AFTER DELETE ON "index" BEGIN
    DELETE FROM itemDocXRef WHERE PlantItemNo = OLD.PlantItemNo;
END;

-- The ties of a renamed tag follow it. The row's own ties may have been written under the new name
-- already: what stands there wins, and an old tie that it covers goes.
CREATE TRIGGER indexRename AFTER UPDATE OF PlantItemNo ON "index"
WHEN NEW.PlantItemNo <> OLD.PlantItemNo COLLATE JET
BEGIN
    UPDATE itemDocXRef SET PlantItemNo = NEW.PlantItemNo
    WHERE PlantItemNo = OLD.PlantItemNo AND NOT EXISTS (
        SELECT 1 FROM itemDocXRef AS there
        WHERE there.PlantItemNo = NEW.PlantItemNo AND there.docNo = itemDocXRef.docNo
            AND coalesce(itemDocXRef.context, '') COLLATE JET
                IN ('', coalesce(there.context, '')));
    DELETE FROM itemDocXRef WHERE PlantItemNo = OLD.PlantItemNo;
END;

-- The same name in another spelling (case, blanks at the end): nothing moves, the ties are spelled
-- anew. Foreign keys do the same for us only where the name differs, so documents and kinds get
-- triggers of the same form.
CREATE TRIGGER indexRespell AFTER UPDATE OF PlantItemNo ON "index"
WHEN NEW.PlantItemNo = OLD.PlantItemNo COLLATE JET
    AND NEW.PlantItemNo <> OLD.PlantItemNo COLLATE BINARY
BEGIN
    UPDATE itemDocXRef SET PlantItemNo = NEW.PlantItemNo WHERE PlantItemNo = OLD.PlantItemNo;
END;

CREATE TRIGGER documentRespell AFTER UPDATE OF docNo ON document
WHEN NEW.docNo = OLD.docNo COLLATE JET AND NEW.docNo <> OLD.docNo COLLATE BINARY
BEGIN
    UPDATE itemDocXRef SET docNo = NEW.docNo WHERE docNo = OLD.docNo;
END;

CREATE TRIGGER plDocTypeRespell AFTER UPDATE OF docType ON plDocType
WHEN NEW.docType = OLD.docType COLLATE JET AND NEW.docType <> OLD.docType COLLATE BINARY
BEGIN
    UPDATE document SET docType = NEW.docType WHERE docType = OLD.docType;
END;
