#pragma once

#include "packages/Catalogue.h"
#include "packages/JsonTree.h"

#include <functional>
#include <initializer_list>

// Reads the text of a catalogue into plain values. Whatever is not as it should be is a problem with its place; the
// rest is read. Whether the types and classes that it names are there is not looked at here.
class CatalogueReader {
public:
    CatalogueReader(const JsonTree& tree, Problems& problems);

    // An object without a package is no catalogue: nothing, and a problem.
    std::optional<Catalogue> Read(const QString& fileName);

private:
    using MemberReader = std::function<void(const JsonValue&)>;
    struct Entry {
        QLatin1String Key;
        MemberReader Read;
    };

    void ReadMembers(const JsonValue& object, std::initializer_list<Entry> entries);
    bool Is(const JsonValue& value, JsonValue::Kind kind);
    void Tell(qsizetype offset, const QString& text);

    MemberReader Into(QString& text);
    MemberReader Into(bool& flag);
    MemberReader Into(QStringList& list);
    MemberReader Into(QHash<QString, QString>& map);

    void ReadTypes(const JsonValue& value, QList<CatalogueType>& types);
    bool ReadType(const JsonValue& value, CatalogueType& type);
    bool ReadNamedIntegers(const JsonValue& value, CatalogueType& type);
    void ReadPropertySets(const JsonValue& value, QMap<QString, QList<CatalogueProperty>>& sets);
    void ReadProperties(const JsonValue& value, QList<CatalogueProperty>& properties);
    void ReadEvents(const JsonValue& value, QList<CatalogueProperty>& properties);
    void ReadClasses(const JsonValue& value, QList<CatalogueClass>& classes);
    void ReadClass(const JsonValue& value, CatalogueClass& described);
    void CheckClass(const CatalogueClass& described);
    void ReadSize(const JsonValue& value, std::optional<QSize>& size);
    void ReadIncludes(const JsonValue& value, QList<CatalogueInclude>& includes);
    void ReadCreates(const JsonValue& value, QList<CreatedComponent>& creates);
    void ReadConnection(const JsonValue& value, TConnectionRoles& roles);
    void ReadDataSet(const JsonValue& value, TDataSetRoles& roles);

    const JsonTree& FTree;
    Problems& FProblems;
    QString FFolder;
};
