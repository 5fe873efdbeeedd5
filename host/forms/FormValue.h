#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

class FormValue;

// A named value inside a collection's item that stands on its own.
struct FormItemProperty;

// One item of a collection value that stands on its own. (In a document, items are FormNodes.)
struct FormItem {
    std::optional<int> index; // item [n]
    QList<FormItemProperty> properties;
};

// What a property holds: a value of its own, not tied to a document, copied freely.
class FormValue {
public:
    enum class Kind {
        Null,
        Nil,
        Boolean,
        Integer, // whole numbers up to 64 bits
        Real, // 80-bit numbers; what has no suffix in text
        Double, // 64-bit numbers of a binary form; written as Real in text
        Single, // suffix s in text
        Currency, // suffix c, four decimals
        Date, // suffix d, days since 1899-12-30
        String,
        Identifier, // clBtnFace, DataModule1.Query1; also the name of an event's method
        Set, // [a, b]
        List, // ( ... )
        Collection, // < item ... end >
        Binary, // { hex digits }
    };

    // How a string is kept in a binary form. Text forms have Wide where a #n of 128 or more stands in it.
    enum class StringWidth { Narrow, Wide, Utf8, Unicode };

    FormValue() = default; // Null

    static FormValue nil() { return FormValue(Kind::Nil, std::monostate()); }
    static FormValue boolean(bool value) { return FormValue(Kind::Boolean, value); }
    static FormValue integer(qint64 value) { return FormValue(Kind::Integer, value); }
    static FormValue real(double value); // the shortest decimal that means this double
    static FormValue real(long double value, Kind kind);
    static FormValue string(const QString& text);
    static FormValue narrowString(const QString& text, const QByteArray& bytes);
    static FormValue string(const QString& text, StringWidth width);
    static FormValue identifier(const QString& name) { return FormValue(Kind::Identifier, name); }
    static FormValue set(const QStringList& names) { return FormValue(Kind::Set, names); }
    static FormValue list(const QList<FormValue>& values) { return FormValue(Kind::List, values); }
    static FormValue strings(const QStringList& lines); // a list of strings, as X.Strings has it
    static FormValue collection(const QList<FormItem>& items) { return FormValue(Kind::Collection, items); }
    static FormValue binary(const QByteArray& data) { return FormValue(Kind::Binary, data); }

    Kind kind() const { return m_kind; }
    bool isReal() const { return m_kind >= Kind::Real && m_kind <= Kind::Date; }

    // Each answers for its kind, and the empty value of its type for every other kind.
    bool toBool() const { return get<bool>(); }
    qint64 toInteger() const { return get<qint64>(); }
    long double toReal() const; // of an integer too
    QString toString() const; // of a string, or the name of an identifier
    QStringList toStringList() const; // of a set, or the strings of a list
    QList<FormValue> toList() const { return get<QList<FormValue>>(); }
    QList<FormItem> toItems() const { return get<QList<FormItem>>(); }
    QByteArray toBinary() const { return get<QByteArray>(); }

    StringWidth stringWidth() const { return get<Text>().width; }
    QByteArray narrowBytes() const { return get<Text>().bytes; } // of a narrow string, as the file keeps them

    // The bytes that the value was read from; empty for a value that was made.
    const QByteArray& spelling() const { return m_spelling; }
    void setSpelling(const QByteArray& bytes) { m_spelling = bytes; }

    // Equal in kind and content; the spelling and a string's width do not count.
    bool operator==(const FormValue& other) const;

private:
    struct Text {
        QString text;
        QByteArray bytes;
        StringWidth width = StringWidth::Narrow;
    };
    using Content = std::variant<std::monostate, bool, qint64, long double, Text, QString, QStringList,
        QList<FormValue>, QList<FormItem>, QByteArray>;

    template <typename T>
    FormValue(Kind kind, T content)
        : m_kind(kind)
        , m_content(std::move(content))
    {
    }
    template <typename T>
    T get() const
    {
        const auto* found = std::get_if<T>(&m_content);
        return found ? *found : T();
    }

    Kind m_kind = Kind::Null;
    Content m_content;
    QByteArray m_spelling;
};

struct FormItemProperty {
    QString name;
    FormValue value;
    bool operator==(const FormItemProperty&) const = default;
};

bool operator==(const FormItem& one, const FormItem& other);
