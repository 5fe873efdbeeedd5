#include "data/ObjectFields.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"

TClass TObjectField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TObjectField>(info, QStringLiteral("TObjectField"), TField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Stored(QStringLiteral("ObjectType"), StringType(), QString())
                                   .Made();
    return made;
}

TObjectField::TObjectField(TComponent* owner, TFieldType type, int size)
    : TField(owner, type, size)
{
}

TObjectField::~TObjectField()
{
    while (FChildren.Count() > 0)
        delete FChildren.Fields(FChildren.Count() - 1);
}

TClass TADTField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TADTField>(info, QStringLiteral("TADTField"), TObjectField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Made();
    return made;
}

TClass TArrayField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TArrayField>(info, QStringLiteral("TArrayField"), TObjectField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 10)
                                   .Made();
    return made;
}

TClass TDataSetField::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TDataSetField>(info, QStringLiteral("TDataSetField"), TObjectField::Class())
              .Unit(QStringLiteral("Data.DB"))
              .Stored(QStringLiteral("IncludeObjectField"), BooleanType())
              .Made();
    return made;
}

TClass TReferenceField::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TReferenceField>(info, QStringLiteral("TReferenceField"), TDataSetField::Class())
              .Unit(QStringLiteral("Data.DB"))
              .Stored(QStringLiteral("ReferenceTableName"), StringType(), QString())
              .Made();
    return made;
}
