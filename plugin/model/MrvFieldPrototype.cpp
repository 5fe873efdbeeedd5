#include "model/MrvFieldPrototype.h"

#include "classes/TClassBuilder.h"
#include "model/MrvFieldDefsAttr.h"

TClass TFieldPrototype::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TFieldPrototype>(info, QStringLiteral("TFieldPrototype"), TPersistent::Class())
              .Enumeration(QStringLiteral("DataType"), FieldTypeInfo(), &TFieldPrototype::GetDataType,
                  &TFieldPrototype::SetDataType)
              .Property(QStringLiteral("Precision"), &TFieldPrototype::GetPrecision, &TFieldPrototype::SetPrecision)
              .Property(QStringLiteral("Size"), &TFieldPrototype::GetSize, &TFieldPrototype::SetSize)
              .Property(QStringLiteral("Name"), &TFieldPrototype::GetName, &TFieldPrototype::SetComponentName)
              .Property(QStringLiteral("Tag"), &TFieldPrototype::GetTag, &TFieldPrototype::SetTag)
              .Made();
    return made;
}

TFieldPrototype::TFieldPrototype() = default;

void TFieldPrototype::AssignData(TFieldDefsAttr& attr)
{
    FDataType = attr.GetFieldType();
    attr.GetPrecision(FPrecision);
    attr.GetSize(FSize);
    attr.GetDisplayName(FName, true);
}
