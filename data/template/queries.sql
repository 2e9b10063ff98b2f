-- SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
-- SPDX-License-Identifier: MIT
--
-- The stored queries of a project. An updatable one ends with the column "~key", the rowid of the
-- base table's row, by which its triggers (and the recordsets above) address that row.

CREATE VIEW qryIndex AS
SELECT
    PlantItemNo AS Tag, CompanyTrackingNumber, OperatingUnitNumber, ProcessUnitArea,
    MeasureVariable, TypeModifier, SequenceNo, LoopSuffix, InstrumentSuffix,
    ServiceDescription, LoopNumber, LoopTypicalNum, InstrumentType, EquipOrLineNo, Location,
    ProcessSystemNo, ConstructionArea, ScopeArea, ElectricalArea, ElectricalAreaClassification,
    PlantItemClassification, FireArea, WorkArea, IOType, Manufacturer, ModelNumber,
    ManufacturerSerialNumber, Supplier, SupplierModelNumber, BodyMaterial, JunctionBoxNumber,
    MarshallingRack, MaintenanceRecord, SignalType, ProcessSetPointValue, ProcessRangeValue,
    CalibrationSetPointValue, CalibrationRangeValue, ScaleSetPointValue, ScaleRangeValue,
    H_H_H_SETTING, H_H_SETTING, H_SETTING, L_SETTING, L_L_SETTING, L_L_L_SETTING, TagType,
    FormatType, Remarks, TagPath AS DatasheetPath, TagFileName AS DataSheetFileName,
    CalibUnitsOfMeasure, MaxCalibrationValue, MinCalibrationValue, ProcessUnitsOfMeasure,
    MaxProcessValue, MinProcessValue, rowid AS "~key"
FROM "index";

CREATE TRIGGER qryIndexInsert INSTEAD OF INSERT ON qryIndex BEGIN
    INSERT INTO "index" (
        PlantItemNo, CompanyTrackingNumber, OperatingUnitNumber, ProcessUnitArea,
        MeasureVariable, TypeModifier, SequenceNo, LoopSuffix, InstrumentSuffix,
        ServiceDescription, LoopNumber, LoopTypicalNum, InstrumentType, EquipOrLineNo,
        Location, ProcessSystemNo, ConstructionArea, ScopeArea, ElectricalArea,
        ElectricalAreaClassification, PlantItemClassification, FireArea, WorkArea, IOType,
        Manufacturer, ModelNumber, ManufacturerSerialNumber, Supplier, SupplierModelNumber,
        BodyMaterial, JunctionBoxNumber, MarshallingRack, MaintenanceRecord, SignalType,
        ProcessSetPointValue, ProcessRangeValue, CalibrationSetPointValue,
        CalibrationRangeValue, ScaleSetPointValue, ScaleRangeValue, H_H_H_SETTING, H_H_SETTING,
        H_SETTING, L_SETTING, L_L_SETTING, L_L_L_SETTING, TagType, FormatType, Remarks,
        TagPath, TagFileName, CalibUnitsOfMeasure, MaxCalibrationValue, MinCalibrationValue,
        ProcessUnitsOfMeasure, MaxProcessValue, MinProcessValue)
    VALUES (
        NEW.Tag, NEW.CompanyTrackingNumber, NEW.OperatingUnitNumber, NEW.ProcessUnitArea,
        NEW.MeasureVariable, NEW.TypeModifier, NEW.SequenceNo, NEW.LoopSuffix,
        NEW.InstrumentSuffix, NEW.ServiceDescription, NEW.LoopNumber, NEW.LoopTypicalNum,
        NEW.InstrumentType, NEW.EquipOrLineNo, NEW.Location, NEW.ProcessSystemNo,
        NEW.ConstructionArea, NEW.ScopeArea, NEW.ElectricalArea,
        NEW.ElectricalAreaClassification, NEW.PlantItemClassification, NEW.FireArea,
        NEW.WorkArea, NEW.IOType, NEW.Manufacturer, NEW.ModelNumber,
        NEW.ManufacturerSerialNumber, NEW.Supplier, NEW.SupplierModelNumber, NEW.BodyMaterial,
        NEW.JunctionBoxNumber, NEW.MarshallingRack, NEW.MaintenanceRecord, NEW.SignalType,
        NEW.ProcessSetPointValue, NEW.ProcessRangeValue, NEW.CalibrationSetPointValue,
        NEW.CalibrationRangeValue, NEW.ScaleSetPointValue, NEW.ScaleRangeValue,
        NEW.H_H_H_SETTING, NEW.H_H_SETTING, NEW.H_SETTING, NEW.L_SETTING, NEW.L_L_SETTING,
        NEW.L_L_L_SETTING, NEW.TagType, NEW.FormatType, NEW.Remarks, NEW.DatasheetPath,
        NEW.DataSheetFileName, NEW.CalibUnitsOfMeasure, NEW.MaxCalibrationValue,
        NEW.MinCalibrationValue, NEW.ProcessUnitsOfMeasure, NEW.MaxProcessValue,
        NEW.MinProcessValue);
END;

CREATE TRIGGER qryIndexUpdate INSTEAD OF UPDATE ON qryIndex BEGIN
    UPDATE "index" SET
        PlantItemNo = NEW.Tag, CompanyTrackingNumber = NEW.CompanyTrackingNumber,
        OperatingUnitNumber = NEW.OperatingUnitNumber, ProcessUnitArea = NEW.ProcessUnitArea,
        MeasureVariable = NEW.MeasureVariable, TypeModifier = NEW.TypeModifier,
        SequenceNo = NEW.SequenceNo, LoopSuffix = NEW.LoopSuffix,
        InstrumentSuffix = NEW.InstrumentSuffix, ServiceDescription = NEW.ServiceDescription,
        LoopNumber = NEW.LoopNumber, LoopTypicalNum = NEW.LoopTypicalNum,
        InstrumentType = NEW.InstrumentType, EquipOrLineNo = NEW.EquipOrLineNo,
        Location = NEW.Location, ProcessSystemNo = NEW.ProcessSystemNo,
        ConstructionArea = NEW.ConstructionArea, ScopeArea = NEW.ScopeArea,
        ElectricalArea = NEW.ElectricalArea,
        ElectricalAreaClassification = NEW.ElectricalAreaClassification,
        PlantItemClassification = NEW.PlantItemClassification, FireArea = NEW.FireArea,
        WorkArea = NEW.WorkArea, IOType = NEW.IOType, Manufacturer = NEW.Manufacturer,
        ModelNumber = NEW.ModelNumber, ManufacturerSerialNumber = NEW.ManufacturerSerialNumber,
        Supplier = NEW.Supplier, SupplierModelNumber = NEW.SupplierModelNumber,
        BodyMaterial = NEW.BodyMaterial, JunctionBoxNumber = NEW.JunctionBoxNumber,
        MarshallingRack = NEW.MarshallingRack, MaintenanceRecord = NEW.MaintenanceRecord,
        SignalType = NEW.SignalType, ProcessSetPointValue = NEW.ProcessSetPointValue,
        ProcessRangeValue = NEW.ProcessRangeValue,
        CalibrationSetPointValue = NEW.CalibrationSetPointValue,
        CalibrationRangeValue = NEW.CalibrationRangeValue,
        ScaleSetPointValue = NEW.ScaleSetPointValue, ScaleRangeValue = NEW.ScaleRangeValue,
        H_H_H_SETTING = NEW.H_H_H_SETTING, H_H_SETTING = NEW.H_H_SETTING,
        H_SETTING = NEW.H_SETTING, L_SETTING = NEW.L_SETTING, L_L_SETTING = NEW.L_L_SETTING,
        L_L_L_SETTING = NEW.L_L_L_SETTING, TagType = NEW.TagType, FormatType = NEW.FormatType,
        Remarks = NEW.Remarks, TagPath = NEW.DatasheetPath,
        TagFileName = NEW.DataSheetFileName, CalibUnitsOfMeasure = NEW.CalibUnitsOfMeasure,
        MaxCalibrationValue = NEW.MaxCalibrationValue,
        MinCalibrationValue = NEW.MinCalibrationValue,
        ProcessUnitsOfMeasure = NEW.ProcessUnitsOfMeasure,
        MaxProcessValue = NEW.MaxProcessValue, MinProcessValue = NEW.MinProcessValue
    WHERE rowid = OLD."~key";
END;

CREATE TRIGGER qryIndexDelete INSTEAD OF DELETE ON qryIndex BEGIN
    DELETE FROM "index" WHERE rowid = OLD."~key";
END;

CREATE VIEW qryDoc AS
SELECT docNo, Title, docType, Path, Filename, rowid AS "~key"
FROM document;

CREATE TRIGGER qryDocInsert INSTEAD OF INSERT ON qryDoc BEGIN
    INSERT INTO document (docNo, Title, docType, Path, Filename)
    VALUES (NEW.docNo, NEW.Title, NEW.docType, NEW.Path, NEW.Filename);
END;

CREATE TRIGGER qryDocUpdate INSTEAD OF UPDATE ON qryDoc BEGIN
    UPDATE document SET
        docNo = NEW.docNo, Title = NEW.Title, docType = NEW.docType,
        Path = NEW.Path, Filename = NEW.Filename
    WHERE rowid = OLD."~key";
END;

CREATE TRIGGER qryDocDelete INSTEAD OF DELETE ON qryDoc BEGIN
    DELETE FROM document WHERE rowid = OLD."~key";
END;

CREATE VIEW qryDocXref AS
SELECT
    itemDocXRef.PlantItemNo AS Tag, itemDocXRef.docNo AS docNo, document.Title AS Title,
    document.docType AS docType, document.Path AS Path, document.Filename AS Filename,
    itemDocXRef.context AS context, itemDocXRef.rowid AS "~key"
FROM itemDocXRef INNER JOIN document ON document.docNo = itemDocXRef.docNo;

-- A new row makes a tie to a document that is there already. What it says about the document
-- itself is written to the document; what it leaves open stays.
CREATE TRIGGER qryDocXrefInsert INSTEAD OF INSERT ON qryDocXref BEGIN
    INSERT INTO itemDocXRef (PlantItemNo, docNo, context) VALUES (NEW.Tag, NEW.docNo, NEW.context);
    UPDATE document SET
        Title = coalesce(NEW.Title, Title), docType = coalesce(NEW.docType, docType),
        Path = coalesce(NEW.Path, Path), Filename = coalesce(NEW.Filename, Filename)
    WHERE docNo = NEW.docNo
        AND coalesce(NEW.Title, NEW.docType, NEW.Path, NEW.Filename) IS NOT NULL;
END;

-- A row that is turned to another document must not carry the old document's fields over to it.
CREATE TRIGGER qryDocXrefUpdate INSTEAD OF UPDATE ON qryDocXref BEGIN
    UPDATE itemDocXRef SET PlantItemNo = NEW.Tag, docNo = NEW.docNo, context = NEW.context
    WHERE rowid = OLD."~key";
    UPDATE document SET
        Title = NEW.Title, docType = NEW.docType, Path = NEW.Path, Filename = NEW.Filename
    WHERE docNo = NEW.docNo AND docNo = OLD.docNo;
END;

CREATE TRIGGER qryDocXrefDelete INSTEAD OF DELETE ON qryDocXref BEGIN
    DELETE FROM itemDocXRef WHERE rowid = OLD."~key";
END;

CREATE VIEW qryDsType AS
SELECT ReportNum, DatasheetType, FileName
FROM DatasheetTypes;

CREATE VIEW qryIndexRev AS
SELECT RevNo, Date, Description, createdBy, checkedBy, approvedBy, rowid AS "~key"
FROM IndexRevisions;

CREATE TRIGGER qryIndexRevInsert INSTEAD OF INSERT ON qryIndexRev BEGIN
    INSERT INTO IndexRevisions (RevNo, Date, Description, createdBy, checkedBy, approvedBy)
    VALUES (NEW.RevNo, NEW.Date, NEW.Description, NEW.createdBy, NEW.checkedBy, NEW.approvedBy);
END;

CREATE TRIGGER qryIndexRevUpdate INSTEAD OF UPDATE ON qryIndexRev BEGIN
    UPDATE IndexRevisions SET
        RevNo = NEW.RevNo, Date = NEW.Date, Description = NEW.Description,
        createdBy = NEW.createdBy, checkedBy = NEW.checkedBy, approvedBy = NEW.approvedBy
    WHERE rowid = OLD."~key";
END;

CREATE TRIGGER qryIndexRevDelete INSTEAD OF DELETE ON qryIndexRev BEGIN
    DELETE FROM IndexRevisions WHERE rowid = OLD."~key";
END;

CREATE VIEW qryMap AS
SELECT DatasheetType, Worksheet, object, Field, TableName
FROM Map;

CREATE VIEW qryProjectInfo AS
SELECT attributeName, attributeValue, static, rowid AS "~key"
FROM ProjectInfo;

CREATE TRIGGER qryProjectInfoInsert INSTEAD OF INSERT ON qryProjectInfo BEGIN
    INSERT INTO ProjectInfo (attributeName, attributeValue, static)
    VALUES (NEW.attributeName, NEW.attributeValue, coalesce(NEW.static, 0));
END;

CREATE TRIGGER qryProjectInfoUpdate INSTEAD OF UPDATE ON qryProjectInfo BEGIN
    UPDATE ProjectInfo SET
        attributeName = NEW.attributeName, attributeValue = NEW.attributeValue,
        static = coalesce(NEW.static, 0)
    WHERE rowid = OLD."~key";
END;

CREATE TRIGGER qryProjectInfoDelete INSTEAD OF DELETE ON qryProjectInfo BEGIN
    DELETE FROM ProjectInfo WHERE rowid = OLD."~key";
END;

-- One row, whatever attributes the project has.
CREATE VIEW qryrptindexheader AS
SELECT
    (SELECT attributeValue FROM ProjectInfo WHERE attributeName = 'plant') AS plant,
    (SELECT attributeValue FROM ProjectInfo WHERE attributeName = 'operating unit')
        AS "operating unit",
    (SELECT attributeValue FROM ProjectInfo WHERE attributeName = 'location') AS location,
    (SELECT attributeValue FROM ProjectInfo WHERE attributeName = 'contract') AS contract,
    (SELECT attributeValue FROM ProjectInfo WHERE attributeName = 'company') AS company;
