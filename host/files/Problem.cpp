#include "files/Problem.h"

QString Problem::ToString() const
{
    if (Line <= 0)
        return FileName + QStringLiteral(": ") + Text;
    return QStringLiteral("%1:%2:%3: ").arg(FileName).arg(Line).arg(Column) + Text;
}

Problem FileError(const QString& fileName, const QString& text)
{
    return { fileName, 0, 0, text, Problem::Error };
}
