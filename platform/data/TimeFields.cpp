#include "data/TimeFields.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"

#include <QDateTime>

namespace {

template <class T>
TClass Described(TClassInfo& info, const QString& name, TClass parent)
{
    return TClassBuilder<T>(info, name, parent).Unit(QStringLiteral("Data.DB")).Made();
}

QString Shown(const QDateTime& moment)
{
    const bool midnight = moment.time() == QTime(0, 0);
    return moment.toString(midnight ? QStringLiteral("yyyy-MM-dd") : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

}

TClass TBooleanField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TBooleanField>(info, QStringLiteral("TBooleanField"), TField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Stored(QStringLiteral("DisplayValues"), StringType(), QString())
                                   .Made();
    return made;
}

QString TBooleanField::DisplayText() const
{
    const auto value = Value();
    if (value.isNull())
        return {};
    const auto words = StoredValue(QStringLiteral("DisplayValues")).toString().split(u';');
    const bool yes = value.toBool();
    return words.size() == 2 ? words[yes ? 0 : 1] : BoolToStr(yes, true);
}

TClass TDateTimeField::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TDateTimeField>(info, QStringLiteral("TDateTimeField"), TField::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Stored(QStringLiteral("DisplayFormat"), StringType(), QString())
                                   .Stored(QStringLiteral("EditMask"), StringType(), QString())
                                   .Made();
    return made;
}

QString TDateTimeField::DisplayText() const
{
    const auto value = Value();
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return Shown(value.toDateTime());
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return value.toTime().toString(Qt::ISODate);
    default:
        return TField::DisplayText();
    }
}

TClass TDateField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TDateField>(info, QStringLiteral("TDateField"), TDateTimeField::Class());
    return made;
}

TClass TTimeField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TTimeField>(info, QStringLiteral("TTimeField"), TDateTimeField::Class());
    return made;
}

TClass TSQLTimeStampField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Described<TSQLTimeStampField>(info, QStringLiteral("TSQLTimeStampField"), TDateTimeField::Class());
    return made;
}

TClass TSQLTimeStampOffsetField::Class()
{
    static TClassInfo info;
    static const TClass made = Described<TSQLTimeStampOffsetField>(
        info, QStringLiteral("TSQLTimeStampOffsetField"), TSQLTimeStampField::Class());
    return made;
}
