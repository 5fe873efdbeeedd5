#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <cstring>

// The kinds of values in a binary form, by the byte that stands before them.
enum class BinaryType : uchar {
    Null, // also ends a list
    List,
    Int8,
    Int16,
    Int32,
    Extended,
    String, // a byte of length
    Ident,
    False,
    True,
    Binary,
    Set,
    LString, // four bytes of length
    Nil,
    Collection,
    Single,
    Currency,
    Date,
    WString, // UTF-16, the length counts characters
    Int64,
    Utf8String,
    Double, // or, by some compilers, a string like WString
    QWord,
};

// Walks over the bytes of a binary form and never past their end: a read that would do so fails, and every read after
// a failure gives nothing. Allocates nothing.
class FormBinaryCursor {
public:
    explicit FormBinaryCursor(QByteArrayView bytes, qsizetype start = 0)
        : m_bytes(bytes)
        , m_at(start)
    {
    }

    qsizetype at() const { return m_at; }
    bool failed() const { return m_failed; }
    uchar peek() const { return m_at < m_bytes.size() ? static_cast<uchar>(m_bytes[m_at]) : uchar(0); }
    bool atEnd() const { return m_at >= m_bytes.size(); }

    QByteArrayView take(qint64 count)
    {
        if (m_failed || count < 0 || count > m_bytes.size() - m_at) {
            m_failed = true;
            return {};
        }
        const auto taken = m_bytes.sliced(m_at, static_cast<qsizetype>(count));
        m_at += taken.size();
        return taken;
    }

    template <typename T>
    T number()
    {
        T value {};
        const auto taken = take(qint64(sizeof(T)));
        if (!taken.isEmpty())
            std::memcpy(&value, taken.data(), sizeof(T)); // little endian, as the machines are that forms come from
        return value;
    }

    // A whole number of the type; 0 of a type that is none.
    qint64 integer(BinaryType type)
    {
        switch (type) {
        case BinaryType::Int8:
            return number<qint8>();
        case BinaryType::Int16:
            return number<qint16>();
        case BinaryType::Int32:
            return number<qint32>();
        case BinaryType::Int64:
        case BinaryType::QWord:
            return number<qint64>();
        default:
            return 0;
        }
    }

    QByteArrayView shortString() { return take(number<uchar>()); }
    QByteArrayView longString() { return take(number<quint32>()); }
    QByteArrayView wideString() { return take(qint64(number<quint32>()) * 2); }

private:
    QByteArrayView m_bytes;
    qsizetype m_at;
    bool m_failed = false;
};
