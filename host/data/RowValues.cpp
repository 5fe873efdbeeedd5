#include "data/RowValues.h"

#include <QDateTime>

namespace {

QVariant DateOf(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString)
        return value;
    const auto date = QDate::fromString(value.toString().left(10), Qt::ISODate);
    return date.isValid() ? QVariant(date) : value;
}

QVariant TimeOf(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString)
        return value;
    const auto time = QTime::fromString(value.toString(), Qt::ISODate);
    return time.isValid() ? QVariant(time) : value;
}

QVariant MomentOf(const QVariant& value)
{
    if (value.typeId() != QMetaType::QString)
        return value;
    const auto text = value.toString();
    const auto moment = QDateTime::fromString(text, Qt::ISODate);
    return moment.isValid() ? QVariant(moment) : value;
}

QVariant TruthOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return value.toDouble() != 0;
    case QMetaType::QString: {
        const auto text = value.toString().toLower();
        static const QStringList yes { QStringLiteral("true"), QStringLiteral("t"), QStringLiteral("yes"),
            QStringLiteral("y"), QStringLiteral("1"), QStringLiteral("-1") };
        return yes.contains(text);
    }
    default:
        return value;
    }
}

}

QVariant RowValue(const QVariant& value, TFieldType type)
{
    if (value.isNull())
        return value;
    switch (type) {
    case ftBoolean:
        return TruthOf(value);
    case ftDate:
        return DateOf(value);
    case ftTime:
        return TimeOf(value);
    case ftDateTime:
    case ftTimeStamp:
    case ftTimeStampOffset:
        return MomentOf(value);
    default:
        return value;
    }
}
