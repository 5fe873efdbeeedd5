#include "data/TextFields.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"
#include "data/TFieldDef.h"

TClass TStringField::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TStringField>(info, QStringLiteral("TStringField"), TField::Class())
              .Unit(QStringLiteral("Data.DB"))
              .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 20)
              .Property(QStringLiteral("FixedChar"), &TStringField::FixedChar, &TStringField::SetFixedChar, false)
              .Stored(QStringLiteral("EditMask"), StringType(), QString())
              .Stored(QStringLiteral("Transliterate"), BooleanType(), true)
              .Made();
    return made;
}

void TStringField::SetFixedChar(bool fixed)
{
    if (fixed == FixedChar())
        return;
    SetDataType(fixed ? ftFixedChar : ftString);
    Changed(QStringLiteral("FixedChar"));
}

void TStringField::AssignDef(const TFieldDef& def)
{
    TField::AssignDef(def);
    SetFixedChar(def.DataType() == ftFixedChar || def.DataType() == ftFixedWideChar);
}

TClass TWideStringField::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TWideStringField>(info, QStringLiteral("TWideStringField"), TStringField::Class())
              .Unit(QStringLiteral("Data.DB"))
              .Made();
    return made;
}

void TWideStringField::SetFixedChar(bool fixed)
{
    if (fixed == FixedChar())
        return;
    SetDataType(fixed ? ftFixedWideChar : ftWideString);
    Changed(QStringLiteral("FixedChar"));
}

TClass TGuidField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TGuidField>(info, QStringLiteral("TGuidField"), TStringField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 38)
                                   .Made();
    return made;
}
