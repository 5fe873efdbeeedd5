#include "data/DeclaredType.h"

#include <QRegularExpression>

namespace {

const QHash<QString, TFieldType>& KnownTypes()
{
    static const QHash<QString, TFieldType> types = [] {
        QHash<QString, TFieldType> made;
        const auto add = [&made](TFieldType type, const char* names) {
            for (const auto& name : QString::fromLatin1(names).split(u'|'))
                made.insert(name, type);
        };
        add(ftBoolean, "BIT|BOOL|BOOLEAN|LOGICAL|YESNO");
        add(ftShortint, "TINYINT|SHORTINT|INT1");
        add(ftByte, "BYTE|UINT8|TINYINT UNSIGNED|UNSIGNED TINYINT");
        add(ftSmallint, "SMALLINT|INT2|INT16|YEAR");
        add(ftWord, "WORD|UINT16|SMALLINT UNSIGNED|UNSIGNED SMALLINT");
        add(ftInteger, "INT|INTEGER|INT4|INT32|MEDIUMINT|SERIAL|SERIAL4");
        add(ftLongWord, "LONGWORD|UINT|UINT32|UNSIGNED INT|UNSIGNED INTEGER|INT UNSIGNED|INTEGER UNSIGNED");
        add(ftLargeint, "BIGINT|INT8|INT64|LARGEINT|LONG|UNSIGNED BIG INT|BIGINT UNSIGNED|UINT64|BIGSERIAL|SERIAL8");
        add(ftAutoInc, "COUNTER|AUTOINC|AUTOINCREMENT|IDENTITY");
        add(ftFloat, "REAL|FLOAT|DOUBLE|DOUBLE PRECISION|FLOAT8");
        add(ftSingle, "SINGLE|FLOAT4");
        add(ftCurrency, "CURRENCY|MONEY|SMALLMONEY|FINANCIAL");
        add(ftBCD, "DECIMAL|NUMERIC|NUMBER|DEC");
        add(ftDate, "DATE");
        add(ftTime, "TIME|TIME WITHOUT TIME ZONE");
        add(ftDateTime, "DATETIME|SMALLDATETIME|DATETIME2");
        add(ftTimeStamp, "TIMESTAMP|TIMESTAMP WITHOUT TIME ZONE");
        add(ftTimeStampOffset, "TIMESTAMPTZ|TIMESTAMP WITH TIME ZONE|DATETIMEOFFSET");
        add(ftFixedChar, "CHAR|CHARACTER");
        add(ftString, "VARCHAR|VARCHAR2|CHARACTER VARYING|VARYING CHARACTER|CHAR VARYING|STRING");
        add(ftFixedWideChar, "NCHAR|NATIVE CHARACTER|NATIONAL CHARACTER|NATIONAL CHAR");
        add(ftWideString, "NVARCHAR|NVARCHAR2|NATIONAL CHARACTER VARYING|NATIONAL VARCHAR|NSTRING");
        add(ftMemo, "TEXT|CLOB|MEMO|LONGTEXT|MEDIUMTEXT|TINYTEXT|LONG VARCHAR|LONGVARCHAR|LONGCHAR|JSON|XML");
        add(ftWideMemo, "NTEXT|NCLOB|WIDEMEMO|NMEMO");
        add(ftBlob, "BLOB|IMAGE|LONGBLOB|MEDIUMBLOB|TINYBLOB|LONG VARBINARY|BYTEA|OLEOBJECT");
        add(ftGraphic, "GRAPHIC|PICTURE");
        add(ftBytes, "BINARY|RAW");
        add(ftVarBytes, "VARBINARY");
        add(ftGuid, "GUID|UUID|UNIQUEIDENTIFIER");
        return made;
    }();
    return types;
}

// SQLite's own rules for a type's name that says nothing to anybody else.
TFieldType ByAffinity(const QString& name)
{
    const auto has = [&name](const char* part) { return name.contains(QLatin1String(part)); };
    if (has("INT"))
        return ftInteger;
    if (has("CHAR"))
        return ftString;
    if (has("CLOB") || has("TEXT"))
        return ftMemo;
    if (has("BLOB"))
        return ftBlob;
    if (has("REAL") || has("FLOA") || has("DOUB"))
        return ftFloat;
    return name.isEmpty() ? ftUnknown : ftString;
}

}

TDataColumn TextColumn(TFieldType type, int size)
{
    TDataColumn column;
    column.DataType = type;
    column.Size = size > 0 ? size : DefaultTextSize;
    return column;
}

TDataColumn DecimalColumn(int precision, int scale)
{
    constexpr int bcdDigits = 18;
    constexpr int bcdScale = 4;
    TDataColumn column;
    column.DataType = precision <= bcdDigits && scale <= bcdScale ? ftBCD : ftFMTBcd;
    column.Precision = precision;
    column.Size = scale;
    return column;
}

TDataColumn DeclaredType(const QString& declaration)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*([^(]*?)\\s*(?:\\(\\s*(\\d+)[^,)]*(?:,\\s*(\\d+)\\s*)?\\)\\s*(.*?))?\\s*$"));
    const auto match = form.match(declaration.toUpper().simplified());
    auto name = match.captured(1);
    if (const auto behind = match.captured(4); !behind.isEmpty())
        name += u' ' + behind;
    const int first = match.captured(2).toInt();
    const int second = match.captured(3).toInt();
    const auto type = KnownTypes().contains(name) ? KnownTypes().value(name) : ByAffinity(name);
    TDataColumn column;
    column.DataType = type;
    switch (type) {
    case ftString:
    case ftFixedChar:
    case ftWideString:
    case ftFixedWideChar:
        return TextColumn(type, first);
    case ftBCD:
        return first > 0 ? DecimalColumn(first, second) : DecimalColumn(18, 4);
    case ftBytes:
    case ftVarBytes:
        column.Size = first > 0 ? first : DefaultTextSize;
        return column;
    case ftGuid:
        column.Size = 38;
        return column;
    default:
        return column;
    }
}
