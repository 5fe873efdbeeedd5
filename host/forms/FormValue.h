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
    std::optional<int> Index; // item [n]
    QList<FormItemProperty> Properties;
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

    static FormValue Nil() { return FormValue(Kind::Nil, std::monostate()); }
    static FormValue Boolean(bool value) { return FormValue(Kind::Boolean, value); }
    static FormValue Integer(qint64 value) { return FormValue(Kind::Integer, value); }
    static FormValue Real(double value); // the shortest decimal that means this double
    static FormValue Real(long double value, Kind kind);
    static FormValue String(const QString& text);
    static FormValue NarrowString(const QString& text, const QByteArray& bytes);
    static FormValue String(const QString& text, StringWidth width);
    static FormValue Identifier(const QString& name) { return FormValue(Kind::Identifier, name); }
    static FormValue Set(const QStringList& names) { return FormValue(Kind::Set, names); }
    static FormValue List(const QList<FormValue>& values) { return FormValue(Kind::List, values); }
    static FormValue Strings(const QStringList& lines); // a list of strings, as X.Strings has it
    static FormValue Collection(const QList<FormItem>& items) { return FormValue(Kind::Collection, items); }
    static FormValue Binary(const QByteArray& data) { return FormValue(Kind::Binary, data); }

    Kind TheKind() const { return FKind; }
    bool IsReal() const { return FKind >= Kind::Real && FKind <= Kind::Date; }

    // Each answers for its kind, and the empty value of its type for every other kind.
    bool ToBool() const { return Get<bool>(); }
    qint64 ToInteger() const { return Get<qint64>(); }
    long double ToReal() const; // of an integer too
    QString ToString() const; // of a string, or the name of an identifier
    QStringList ToStringList() const; // of a set, or the strings of a list
    QList<FormValue> ToList() const { return Get<QList<FormValue>>(); }
    QList<FormItem> ToItems() const { return Get<QList<FormItem>>(); }
    QByteArray ToBinary() const { return Get<QByteArray>(); }

    StringWidth TheStringWidth() const { return Get<StringContent>().Width; }
    QByteArray NarrowBytes() const { return Get<StringContent>().Bytes; } // of a narrow string, as the file keeps them

    // The bytes that the value was read from; empty for a value that was made.
    const QByteArray& Spelling() const { return FSpelling; }
    void SetSpelling(const QByteArray& bytes) { FSpelling = bytes; }

    // Equal in kind and content; the spelling and a string's width do not count.
    bool operator==(const FormValue& other) const;

private:
    struct StringContent {
        QString Text;
        QByteArray Bytes;
        StringWidth Width = StringWidth::Narrow;
    };
    using Content = std::variant<std::monostate, bool, qint64, long double, StringContent, QString, QStringList,
        QList<FormValue>, QList<FormItem>, QByteArray>;

    template <typename T>
    FormValue(Kind kind, T content)
        : FKind(kind)
        , FContent(std::move(content))
    {
    }
    template <typename T>
    T Get() const
    {
        const auto* found = std::get_if<T>(&FContent);
        return found ? *found : T();
    }

    Kind FKind = Kind::Null;
    Content FContent;
    QByteArray FSpelling;
};

struct FormItemProperty {
    QString Name;
    FormValue Value;
    bool operator==(const FormItemProperty&) const = default;
};

bool operator==(const FormItem& one, const FormItem& other);
