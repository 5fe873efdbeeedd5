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
        : FBytes(bytes)
        , FAt(start)
    {
    }

    qsizetype At() const { return FAt; }
    bool Failed() const { return FFailed; }
    uchar Peek() const { return FAt < FBytes.size() ? static_cast<uchar>(FBytes[FAt]) : uchar(0); }
    bool AtEnd() const { return FAt >= FBytes.size(); }

    QByteArrayView Take(qint64 count)
    {
        if (FFailed || count < 0 || count > FBytes.size() - FAt) {
            FFailed = true;
            return {};
        }
        const auto taken = FBytes.sliced(FAt, static_cast<qsizetype>(count));
        FAt += taken.size();
        return taken;
    }

    template <typename T>
    T Number()
    {
        T value {};
        const auto taken = Take(qint64(sizeof(T)));
        if (!taken.isEmpty())
            std::memcpy(&value, taken.data(), sizeof(T)); // little endian, as the machines are that forms come from
        return value;
    }

    // A whole number of the type; 0 of a type that is none.
    qint64 Integer(BinaryType type)
    {
        switch (type) {
        case BinaryType::Int8:
            return Number<qint8>();
        case BinaryType::Int16:
            return Number<qint16>();
        case BinaryType::Int32:
            return Number<qint32>();
        case BinaryType::Int64:
        case BinaryType::QWord:
            return Number<qint64>();
        default:
            return 0;
        }
    }

    QByteArrayView ShortString() { return Take(Number<uchar>()); }
    QByteArrayView LongString() { return Take(Number<quint32>()); }
    QByteArrayView WideString() { return Take(qint64(Number<quint32>()) * 2); }

private:
    QByteArrayView FBytes;
    qsizetype FAt;
    bool FFailed = false;
};
