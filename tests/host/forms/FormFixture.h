#pragma once

#include "forms/FormDocument.h"

#include <gtest/gtest.h>

#include <memory>

// Reads form text that a test writes down; a failure is one of the test.
inline std::unique_ptr<FormDocument> readForm(const QByteArray& bytes, const FormReadOptions& options = {})
{
    auto read = FormDocument::read(bytes, options);
    if (read)
        return std::move(read.value());
    ADD_FAILURE() << qPrintable(read.error().toString());
    return FormDocument::create(QStringLiteral("TBroken"), QStringLiteral("Broken"), "\n");
}

// The error that reading gives, "line:column: message" or "message (at byte N)"; empty where it reads.
inline QString readError(const QByteArray& bytes, const FormReadOptions& options = {})
{
    const auto read = FormDocument::read(bytes, options);
    return read ? QString() : read.error().toString();
}

inline std::ostream& operator<<(std::ostream& out, const FormValue& value)
{
    return out << "kind " << static_cast<int>(value.kind()) << ' ' << value.spelling().toStdString() << ' '
               << qPrintable(value.toString());
}
