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
    QString file;
    int line = 0;
    int column = 0;
    qint64 offset = 0;
    QString message; // says what is wrong and what to do about it

    QString toString() const; // "file:line:column: message", or "file: message (at byte N)" in a binary form
};

// The error at an offset in a text, whose first line begins at `textStart` (behind a mark).
FormError formErrorAt(
    QByteArrayView text, qsizetype textStart, const FormEncoding& encoding, qsizetype offset, const QString& message);

// Either a value or the error that stood in its way.
template <typename T>
class FormResult {
public:
    FormResult(T value)
        : m_content(std::move(value))
    {
    }
    FormResult(FormError error)
        : m_content(std::move(error))
    {
    }

    explicit operator bool() const { return m_content.index() == 0; }
    T& value() { return std::get<0>(m_content); }
    const T& value() const { return std::get<0>(m_content); }
    T& operator*() { return value(); }
    T* operator->() { return &value(); }
    const FormError& error() const { return std::get<1>(m_content); }

private:
    std::variant<T, FormError> m_content;
};
