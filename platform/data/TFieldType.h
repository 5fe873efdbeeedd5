#pragma once

#include "classes/TypInfo.h"

// The data types of fields. Names and numbers are part of the boundary: configurations store them.
enum TFieldType : int {
    ftUnknown,
    ftString,
    ftSmallint,
    ftInteger,
    ftWord,
    ftBoolean,
    ftFloat,
    ftCurrency,
    ftBCD,
    ftDate,
    ftTime,
    ftDateTime,
    ftBytes,
    ftVarBytes,
    ftAutoInc,
    ftBlob,
    ftMemo,
    ftGraphic,
    ftFmtMemo,
    ftParadoxOle,
    ftDBaseOle,
    ftTypedBinary,
    ftCursor,
    ftFixedChar,
    ftWideString,
    ftLargeint,
    ftADT,
    ftArray,
    ftReference,
    ftDataSet,
    ftOraBlob,
    ftOraClob,
    ftVariant,
    ftInterface,
    ftIDispatch,
    ftGuid,
    ftTimeStamp,
    ftFMTBcd,
    ftFixedWideChar,
    ftWideMemo,
    ftOraTimeStamp,
    ftOraInterval,
    ftLongWord,
    ftShortint,
    ftByte,
    ftExtended,
    ftConnection,
    ftParams,
    ftStream,
    ftTimeStampOffset,
    ftObject,
    ftSingle,
};

// Where a field's value comes from.
enum TFieldKind { fkData, fkCalculated, fkLookup, fkInternalCalc, fkAggregate };

// Type information, for names: GetEnumName(FieldTypeInfo(), ftString) is "ftString". Its names are in order of number.
const TTypeInfo& FieldTypeInfo();
const TTypeInfo& FieldKindInfo();

// The class of the field that a definition of that type makes; nil for a type that no field is made of.
TClass DefaultFieldClass(TFieldType type);
