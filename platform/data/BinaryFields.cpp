#include "data/BinaryFields.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"
#include "data/TFieldDef.h"

namespace {

template <class T>
TClass Described(TClassInfo& info, const QString& name, TClass parent)
{
    return TClassBuilder<T>(info, name, parent).Unit(QStringLiteral("Data.DB")).Made();
}

// A long text class, whose BlobType in form files is left out where it is this one.
template <class T>
TClass DescribedBlob(TClassInfo& info, const QString& name, TClass parent, const QString& blobType)
{
    return TClassBuilder<T>(info, name, parent)
        .Unit(QStringLiteral("Data.DB"))
        .Enumeration(QStringLiteral("BlobType"), FieldTypeInfo(), &TField::DataType, &TBlobField::SetBlobType, blobType)
        .Made();
}

}

TClass TBinaryField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TBinaryField>(info, QStringLiteral("TBinaryField"), TField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 16)
                                   .Made();
    return made;
}

QString TBinaryField::DisplayText() const
{
    return QString::fromLatin1(Value().toByteArray().toHex().toUpper());
}

TClass TBytesField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TBytesField>(info, QStringLiteral("TBytesField"), TBinaryField::Class());
    return made;
}

TClass TVarBytesField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TVarBytesField>(info, QStringLiteral("TVarBytesField"), TBytesField::Class());
    return made;
}

TClass TBlobField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TBlobField>(info, QStringLiteral("TBlobField"), TField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Enumeration(QStringLiteral("BlobType"), FieldTypeInfo(), &TField::DataType,
                                       &TBlobField::SetBlobType, QStringLiteral("ftBlob"))
                                   .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 0)
                                   .Stored(QStringLiteral("GraphicHeader"), BooleanType(), true)
                                   .Made();
    return made;
}

void TBlobField::SetBlobType(TFieldType type)
{
    if (type == DataType())
        return;
    SetDataType(type);
    Changed(QStringLiteral("BlobType"));
}

void TBlobField::AssignDef(const TFieldDef& def)
{
    TField::AssignDef(def);
    SetBlobType(def.DataType());
}

QString TBlobField::DisplayText() const
{
    const auto value = Value();
    if (value.isNull())
        return {};
    if (value.typeId() == QMetaType::QByteArray)
        return QStringLiteral("(Blob)");
    const auto text = value.toString();
    return text.left(text.indexOf(u'\n')).trimmed();
}

TClass TMemoField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TMemoField>(info, QStringLiteral("TMemoField"), TBlobField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Enumeration(QStringLiteral("BlobType"), FieldTypeInfo(), &TField::DataType,
                                       &TBlobField::SetBlobType, QStringLiteral("ftMemo"))
                                   .Stored(QStringLiteral("Transliterate"), BooleanType(), true)
                                   .Made();
    return made;
}

TClass TWideMemoField::Class()
{
    static TClassInfo info;
    static const TClass made = DescribedBlob<TWideMemoField>(
        info, QStringLiteral("TWideMemoField"), TBlobField::Class(), QStringLiteral("ftWideMemo"));
    return made;
}

TClass TGraphicField::Class()
{
    static TClassInfo info;
    static const TClass made = DescribedBlob<TGraphicField>(
        info, QStringLiteral("TGraphicField"), TBlobField::Class(), QStringLiteral("ftGraphic"));
    return made;
}

TClass TVariantField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TVariantField>(info, QStringLiteral("TVariantField"), TField::Class());
    return made;
}

TClass TInterfaceField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TInterfaceField>(info, QStringLiteral("TInterfaceField"), TField::Class());
    return made;
}

TClass TIDispatchField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Described<TIDispatchField>(info, QStringLiteral("TIDispatchField"), TInterfaceField::Class());
    return made;
}
