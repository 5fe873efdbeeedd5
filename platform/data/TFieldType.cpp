#include "data/TFieldType.h"

#include "data/BinaryFields.h"
#include "data/NumericFields.h"
#include "data/ObjectFields.h"
#include "data/TextFields.h"
#include "data/TimeFields.h"

const TTypeInfo& FieldTypeInfo()
{
    static const TTypeInfo info { tkEnumeration, QStringLiteral("TFieldType"),
        QStringLiteral(
            "ftUnknown ftString ftSmallint ftInteger ftWord ftBoolean ftFloat ftCurrency ftBCD ftDate ftTime "
            "ftDateTime ftBytes ftVarBytes ftAutoInc ftBlob ftMemo ftGraphic ftFmtMemo ftParadoxOle "
            "ftDBaseOle ftTypedBinary ftCursor ftFixedChar ftWideString ftLargeint ftADT ftArray "
            "ftReference ftDataSet ftOraBlob ftOraClob ftVariant ftInterface ftIDispatch ftGuid ftTimeStamp "
            "ftFMTBcd ftFixedWideChar ftWideMemo ftOraTimeStamp ftOraInterval ftLongWord ftShortint ftByte "
            "ftExtended ftConnection ftParams ftStream ftTimeStampOffset ftObject ftSingle")
            .split(u' ') };
    return info;
}

const TTypeInfo& FieldKindInfo()
{
    static const TTypeInfo info { tkEnumeration, QStringLiteral("TFieldKind"),
        QStringLiteral("fkData fkCalculated fkLookup fkInternalCalc fkAggregate").split(u' ') };
    return info;
}

namespace {

QHash<TFieldType, TClass> FieldClasses()
{
    return { { ftString, TStringField::Class() }, { ftSmallint, TSmallintField::Class() },
        { ftInteger, TIntegerField::Class() }, { ftWord, TWordField::Class() }, { ftBoolean, TBooleanField::Class() },
        { ftFloat, TFloatField::Class() }, { ftCurrency, TCurrencyField::Class() }, { ftBCD, TBCDField::Class() },
        { ftDate, TDateField::Class() }, { ftTime, TTimeField::Class() }, { ftDateTime, TDateTimeField::Class() },
        { ftBytes, TBytesField::Class() }, { ftVarBytes, TVarBytesField::Class() },
        { ftAutoInc, TAutoIncField::Class() }, { ftBlob, TBlobField::Class() }, { ftMemo, TMemoField::Class() },
        { ftGraphic, TGraphicField::Class() }, { ftFmtMemo, TBlobField::Class() },
        { ftParadoxOle, TBlobField::Class() }, { ftDBaseOle, TBlobField::Class() },
        { ftTypedBinary, TBlobField::Class() }, { ftFixedChar, TStringField::Class() },
        { ftWideString, TWideStringField::Class() }, { ftLargeint, TLargeintField::Class() },
        { ftADT, TADTField::Class() }, { ftArray, TArrayField::Class() }, { ftReference, TReferenceField::Class() },
        { ftDataSet, TDataSetField::Class() }, { ftOraBlob, TBlobField::Class() }, { ftOraClob, TMemoField::Class() },
        { ftVariant, TVariantField::Class() }, { ftInterface, TInterfaceField::Class() },
        { ftIDispatch, TIDispatchField::Class() }, { ftGuid, TGuidField::Class() },
        { ftTimeStamp, TSQLTimeStampField::Class() }, { ftFMTBcd, TFMTBCDField::Class() },
        { ftFixedWideChar, TWideStringField::Class() }, { ftWideMemo, TWideMemoField::Class() },
        { ftOraTimeStamp, TSQLTimeStampField::Class() }, { ftOraInterval, TSQLTimeStampField::Class() },
        { ftLongWord, TLongWordField::Class() }, { ftShortint, TShortintField::Class() },
        { ftByte, TByteField::Class() }, { ftExtended, TExtendedField::Class() }, { ftStream, TBlobField::Class() },
        { ftTimeStampOffset, TSQLTimeStampOffsetField::Class() }, { ftSingle, TSingleField::Class() } };
}

}

TClass DefaultFieldClass(TFieldType type)
{
    static const auto classes = FieldClasses();
    return classes.value(type);
}
