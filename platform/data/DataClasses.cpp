#include "data/DataClasses.h"

#include "data/BinaryFields.h"
#include "data/NumericFields.h"
#include "data/ObjectFields.h"
#include "data/TCustomZAConnection.h"
#include "data/TCustomZASQL.h"
#include "data/TDataSource.h"
#include "data/TParams.h"
#include "data/TextFields.h"
#include "data/TimeFields.h"
#include "data/ZADataSets.h"

namespace {

QList<TClass> FieldClasses()
{
    return { TField::Class(), TStringField::Class(), TWideStringField::Class(), TGuidField::Class(),
        TNumericField::Class(), TIntegerField::Class(), TSmallintField::Class(), TWordField::Class(),
        TShortintField::Class(), TByteField::Class(), TAutoIncField::Class(), TLongWordField::Class(),
        TLargeintField::Class(), TFloatField::Class(), TCurrencyField::Class(), TExtendedField::Class(),
        TSingleField::Class(), TBCDField::Class(), TFMTBCDField::Class(), TAggregateField::Class(),
        TBooleanField::Class(), TDateTimeField::Class(), TDateField::Class(), TTimeField::Class(),
        TSQLTimeStampField::Class(), TSQLTimeStampOffsetField::Class(), TBinaryField::Class(), TBytesField::Class(),
        TVarBytesField::Class(), TBlobField::Class(), TMemoField::Class(), TWideMemoField::Class(),
        TGraphicField::Class(), TVariantField::Class(), TInterfaceField::Class(), TIDispatchField::Class(),
        TObjectField::Class(), TADTField::Class(), TArrayField::Class(), TDataSetField::Class(),
        TReferenceField::Class() };
}

QList<TClass> OtherClasses()
{
    return { TFieldDef::Class(), TFieldDefs::Class(), TParam::Class(), TParams::Class(), TDataSet::Class(),
        TDataSource::Class(), TCustomZAConnection::Class(), TZAConnection::Class(), TCustomZADataSet::Class(),
        TZAQuery::Class(), TZATable::Class(), TZAStoredProc::Class(), TZAScratchTable::Class(), TCustomZASQL::Class(),
        TZASQL::Class(), TZAScript::Class() };
}

}

void RegisterDataClasses()
{
    for (const auto aClass : FieldClasses() + OtherClasses())
        RegisterClass(aClass);
}
