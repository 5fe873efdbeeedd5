#pragma once

#include "files/Problem.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

// A value of a JSON file with the place where it stands.
class JsonValue {
public:
    enum Kind { Null, Boolean, Number, Text, Array, Object };
    struct Member;

    Kind Type = Null;
    bool Flag = false; // of a Boolean
    double Value = 0; // of a number
    QString String; // of a text
    QList<JsonValue> Items; // of an array
    QList<Member> Members; // of an object, in order
    qsizetype Offset = 0; // of a text, a list and an object where it begins; of others where it ends

    // The member of that name, or nil.
    const JsonValue* Find(QLatin1String name) const;
    // "a text", "a list" ...: for messages.
    static QString KindName(Kind kind);
};

struct JsonValue::Member {
    QString Name;
    JsonValue Value;
    qsizetype Offset = 0; // of the name
};

// Reads a JSON file so that whatever is wrong in it can be told with line and column.
class JsonTree {
public:
    // Values nested deeper are no catalogue's.
    static constexpr int DeepestLevel = 32;

    // A file that is no JSON adds one problem and gives no root. A member that stands twice adds one as well; the
    // first counts.
    JsonTree(const QString& fileName, const QByteArray& bytes, Problems& problems);

    const JsonValue* Root() const { return FRoot ? &*FRoot : nullptr; }
    Problem ProblemAt(qsizetype offset, const QString& text, Problem::Kind severity = Problem::Warning) const;

private:
    QString FFileName;
    QByteArray FBytes;
    std::optional<JsonValue> FRoot;
};
