#include "forms/FormError.h"

QString FormError::toString() const
{
    if (line > 0)
        return QStringLiteral("%1:%2:%3: %4").arg(file).arg(line).arg(column).arg(message);
    return QStringLiteral("%1: %2 (at byte %3)").arg(file, message).arg(offset);
}
