#pragma once

#include "units/PascalUnit.h"

#include <QString>

// Short ways to write tests over units.

inline PascalUnit PascalOf(const QByteArray& text, PascalDialect dialect = PascalDialect::Delphi)
{
    return PascalUnit(SourceFile(QStringLiteral("Main.pas"), text), dialect);
}

inline std::string BytesOf(const SourceUnit& unit)
{
    return unit.Files().constFirst().Bytes.toStdString();
}

inline std::string MessageOf(const Failure& failure)
{
    return failure ? failure->ToString().toStdString() : std::string("done");
}

// The text with `added` behind the first `behind`.
inline std::string With(QByteArray text, const QByteArray& behind, const QByteArray& added)
{
    const auto at = text.indexOf(behind);
    return at < 0 ? "the text holds no " + behind.toStdString() : text.insert(at + behind.size(), added).toStdString();
}

// The text without the first `removed`.
inline std::string Without(QByteArray text, const QByteArray& removed)
{
    const auto at = text.indexOf(removed);
    return at < 0 ? "the text holds no " + removed.toStdString() : text.remove(at, removed.size()).toStdString();
}

// "name: type" for each field that the designer keeps, with commas between.
inline std::string FieldsOf(const SourceUnit& unit, const QString& className)
{
    const auto found = unit.FindClass(className);
    if (!found)
        return "no such class";
    QStringList fields;
    for (const auto& field : found->PublishedFields)
        fields << field.Name + QStringLiteral(": ") + field.Type;
    return fields.join(QStringLiteral(", ")).toStdString();
}
