#pragma once

#include "forms/FormDocument.h"

#include <gtest/gtest.h>

#include <memory>

// Reads form text that a test writes down; a failure is one of the test.
inline std::unique_ptr<FormDocument> ReadForm(const QByteArray& bytes, const FormReadOptions& options = {})
{
    auto read = FormDocument::Read(bytes, options);
    if (read)
        return std::move(read.Value());
    ADD_FAILURE() << qPrintable(read.Error().ToString());
    return FormDocument::Create(QStringLiteral("TBroken"), QStringLiteral("Broken"), "\n");
}

// The error that reading gives, "line:column: message" or "message (at byte N)"; empty where it reads.
inline QString ReadError(const QByteArray& bytes, const FormReadOptions& options = {})
{
    const auto read = FormDocument::Read(bytes, options);
    return read ? QString() : read.Error().ToString();
}

inline std::ostream& operator<<(std::ostream& out, const FormValue& value)
{
    return out << "kind " << static_cast<int>(value.TheKind()) << ' ' << value.Spelling().toStdString() << ' '
               << qPrintable(value.ToString());
}
