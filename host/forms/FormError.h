#pragma once

#include <QByteArrayView>
#include <QString>

#include <utility>
#include <variant>

class FormEncoding;

// Why a form file could not be read, and where. A value: nothing in this folder throws for bad input.
// Lines and columns count from 1 and columns count characters, not bytes. A binary form has no lines: line is 0
// then, and offset (bytes from the start of the file, from 0) tells the place.
struct FormError {
    QString File;
    int Line = 0;
    int Column = 0;
    qint64 Offset = 0;
    QString Message; // says what is wrong and what to do about it

    QString ToString() const; // "file:line:column: message", or "file: message (at byte N)" in a binary form
};

// The error at an offset in a text, whose first line begins at `textStart` (behind a mark).
FormError FormErrorAt(
    QByteArrayView text, qsizetype textStart, const FormEncoding& encoding, qsizetype offset, const QString& message);

// Either a value or the error that stood in its way.
template <typename T>
class FormResult {
public:
    FormResult(T value)
        : FContent(std::move(value))
    {
    }
    FormResult(FormError error)
        : FContent(std::move(error))
    {
    }

    explicit operator bool() const { return FContent.index() == 0; }
    T& Value() { return std::get<0>(FContent); }
    const T& Value() const { return std::get<0>(FContent); }
    T& operator*() { return Value(); }
    T* operator->() { return &Value(); }
    const FormError& Error() const { return std::get<1>(FContent); }

private:
    std::variant<T, FormError> FContent;
};
