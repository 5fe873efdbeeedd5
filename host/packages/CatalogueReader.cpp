#include "packages/CatalogueReader.h"

#include "rtl/SysUtils.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace {

// What the form surface knows how to draw.
bool isDrawn(const QString& draw)
{
    static const QSet<QString> known { QStringLiteral("form"), QStringLiteral("panel"), QStringLiteral("group"),
        QStringLiteral("tabs"), QStringLiteral("tabsheet"), QStringLiteral("toolbar"), QStringLiteral("toolbutton"),
        QStringLiteral("statusbar"), QStringLiteral("splitter"), QStringLiteral("bevel"), QStringLiteral("shape"),
        QStringLiteral("image"), QStringLiteral("label"), QStringLiteral("edit"), QStringLiteral("memo"),
        QStringLiteral("button"), QStringLiteral("check"), QStringLiteral("radio"), QStringLiteral("radiogroup"),
        QStringLiteral("combo"), QStringLiteral("list"), QStringLiteral("listview"), QStringLiteral("tree"),
        QStringLiteral("grid"), QStringLiteral("navigator"), QStringLiteral("progress"), QStringLiteral("trackbar"),
        QStringLiteral("scrollbar"), QStringLiteral("chart"), QStringLiteral("menu"), QStringLiteral("nonvisual"),
        QStringLiteral("none") };
    return known.contains(draw);
}

bool isGroup(const QString& group)
{
    return group.isEmpty() || group == u"VCL" || group == u"FMX" || group == u"LCL";
}

bool isIdentifier(const QString& text)
{
    static const QRegularExpression identifier(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return identifier.match(text).hasMatch();
}

// "Name: Type = default"; events may leave out the type.
std::optional<CatalogueProperty> parsedProperty(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^([A-Za-z_]\\w*)\\s*(?::\\s*([A-Za-z_]\\w*)\\s*(?:=\\s*(.*\\S))?)?\\s*$"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    CatalogueProperty property { match.captured(1), match.captured(2), {}, 0 };
    if (!match.captured(3).isEmpty())
        property.Default = match.captured(3);
    return property;
}

}

CatalogueReader::CatalogueReader(const JsonTree& tree, Problems& problems)
    : FTree(tree)
    , FProblems(problems)
{
}

void CatalogueReader::Tell(qsizetype offset, const QString& text)
{
    FProblems << FTree.ProblemAt(offset, text);
}

bool CatalogueReader::Is(const JsonValue& value, JsonValue::Kind kind)
{
    if (value.Type == kind)
        return true;
    Tell(value.Offset,
        QStringLiteral("This is to be %1, not %2").arg(JsonValue::KindName(kind), JsonValue::KindName(value.Type)));
    return false;
}

void CatalogueReader::ReadMembers(const JsonValue& object, std::initializer_list<Entry> entries)
{
    if (!Is(object, JsonValue::Object))
        return;
    for (const auto& member : object.Members) {
        const auto entry = std::find_if(
            entries.begin(), entries.end(), [&member](const Entry& known) { return member.Name == known.Key; });
        if (entry == entries.end())
            Tell(member.Offset, QStringLiteral("'%1' is no key of a catalogue here").arg(member.Name));
        else
            entry->Read(member.Value);
    }
}

CatalogueReader::MemberReader CatalogueReader::Into(QString& text)
{
    return [this, &text](const JsonValue& value) {
        if (Is(value, JsonValue::Text))
            text = value.String;
    };
}

CatalogueReader::MemberReader CatalogueReader::Into(bool& flag)
{
    return [this, &flag](const JsonValue& value) {
        if (Is(value, JsonValue::Boolean))
            flag = value.Flag;
    };
}

CatalogueReader::MemberReader CatalogueReader::Into(QStringList& list)
{
    return [this, &list](const JsonValue& value) {
        if (!Is(value, JsonValue::Array))
            return;
        for (const auto& item : value.Items)
            if (Is(item, JsonValue::Text))
                list << item.String;
    };
}

CatalogueReader::MemberReader CatalogueReader::Into(QHash<QString, QString>& map)
{
    return [this, &map](const JsonValue& value) {
        if (!Is(value, JsonValue::Object))
            return;
        for (const auto& member : value.Members)
            if (Is(member.Value, JsonValue::Text))
                map.insert(member.Name, member.Value.String);
    };
}

std::optional<Catalogue> CatalogueReader::Read(const QString& fileName)
{
    const auto* root = FTree.Root();
    if (!root || !Is(*root, JsonValue::Object))
        return std::nullopt;
    FFolder = QFileInfo(fileName).absolutePath();
    Catalogue read;
    read.FileName = fileName;
    ReadMembers(*root,
        { { QLatin1String("package"), Into(read.Package) }, { QLatin1String("description"), Into(read.Description) },
            { QLatin1String("group"), Into(read.Group) }, { QLatin1String("requires"), Into(read.Requires) },
            { QLatin1String("types"), [&](const JsonValue& value) { ReadTypes(value, read.Types); } },
            { QLatin1String("propertySets"),
                [&](const JsonValue& value) { ReadPropertySets(value, read.PropertySets); } },
            { QLatin1String("classes"), [&](const JsonValue& value) { ReadClasses(value, read.Classes); } } });
    if (read.Package.isEmpty()) {
        FProblems << FTree.ProblemAt(0, QStringLiteral("A catalogue names its package"), Problem::Error);
        return std::nullopt;
    }
    if (!isGroup(read.Group))
        Tell(root->Find(QLatin1String("group"))->Offset,
            QStringLiteral("'%1' is no class group; there are VCL, FMX and LCL").arg(read.Group));
    return read;
}

void CatalogueReader::ReadTypes(const JsonValue& value, QList<CatalogueType>& types)
{
    if (!Is(value, JsonValue::Object))
        return;
    for (const auto& member : value.Members) {
        CatalogueType type;
        type.Name = member.Name;
        type.Offset = member.Offset;
        if (ReadType(member.Value, type))
            types << type;
    }
}

bool CatalogueReader::ReadType(const JsonValue& value, CatalogueType& type)
{
    if (value.Type == JsonValue::Array) {
        type.Kind = tkEnumeration;
        Into(type.Identifiers)(value);
        return true;
    }
    if (value.Type == JsonValue::Object)
        return ReadNamedIntegers(value, type);
    if (!Is(value, JsonValue::Text))
        return false;
    static const QRegularExpression set(QStringLiteral("^set of (\\w+)$"));
    static const QRegularExpression event(QStringLiteral("^procedure\\((.*)\\)$"));
    if (const auto match = set.match(value.String); match.hasMatch()) {
        type.Kind = tkSet;
        type.Of = match.captured(1);
    } else if (const auto called = event.match(value.String); called.hasMatch()) {
        type.Kind = tkMethod;
        type.Of = called.captured(1);
    } else if (isIdentifier(value.String)) {
        type.Of = value.String;
    } else {
        Tell(value.Offset, QStringLiteral("'%1' declares no type").arg(value.String));
        return false;
    }
    return true;
}

bool CatalogueReader::ReadNamedIntegers(const JsonValue& value, CatalogueType& type)
{
    type.Kind = tkInteger;
    const auto before = FProblems.size();
    ReadMembers(value, { { QLatin1String("integer"), [&](const JsonValue& names) {
                              if (!Is(names, JsonValue::Object))
                                  return;
                              for (const auto& name : names.Members)
                                  if (Is(name.Value, JsonValue::Number))
                                      type.Values.insert(name.Name, qlonglong(name.Value.Value));
                          } } });
    return FProblems.size() == before;
}

void CatalogueReader::ReadPropertySets(const JsonValue& value, QMap<QString, QList<CatalogueProperty>>& sets)
{
    if (!Is(value, JsonValue::Object))
        return;
    for (const auto& member : value.Members) {
        auto& properties = sets[member.Name];
        ReadMembers(member.Value,
            { { QLatin1String("properties"), [&](const JsonValue& list) { ReadProperties(list, properties); } },
                { QLatin1String("events"), [&](const JsonValue& list) { ReadEvents(list, properties); } } });
    }
}

void CatalogueReader::ReadProperties(const JsonValue& value, QList<CatalogueProperty>& properties)
{
    if (!Is(value, JsonValue::Array))
        return;
    for (const auto& item : value.Items) {
        if (!Is(item, JsonValue::Text))
            continue;
        auto property = parsedProperty(item.String);
        if (!property || property->Type.isEmpty()) {
            Tell(item.Offset, QStringLiteral("'%1' is not of the form 'Name: Type = default'").arg(item.String));
            continue;
        }
        property->Offset = item.Offset;
        properties << *property;
    }
}

void CatalogueReader::ReadEvents(const JsonValue& value, QList<CatalogueProperty>& properties)
{
    if (!Is(value, JsonValue::Array))
        return;
    for (const auto& item : value.Items) {
        if (!Is(item, JsonValue::Text))
            continue;
        auto event = parsedProperty(item.String);
        if (!event || event->Default) {
            Tell(item.Offset, QStringLiteral("'%1' is not of the form 'OnName: Type'").arg(item.String));
            continue;
        }
        if (event->Type.isEmpty())
            event->Type = QStringLiteral("TNotifyEvent");
        event->Offset = item.Offset;
        properties << *event;
    }
}

void CatalogueReader::ReadClasses(const JsonValue& value, QList<CatalogueClass>& classes)
{
    if (!Is(value, JsonValue::Array))
        return;
    for (const auto& item : value.Items) {
        if (!Is(item, JsonValue::Object))
            continue;
        CatalogueClass described;
        ReadClass(item, described);
        if (isIdentifier(described.Name))
            classes << described;
        else
            Tell(item.Offset, QStringLiteral("A class has an identifier as its name, not '%1'").arg(described.Name));
    }
}

void CatalogueReader::ReadClass(const JsonValue& value, CatalogueClass& described)
{
    described.Offset = value.Offset;
    if (const auto* name = value.Find(QLatin1String("name")))
        described.Offset = name->Offset;
    ReadMembers(value,
        { { QLatin1String("name"), Into(described.Name) }, { QLatin1String("parent"), Into(described.Parent) },
            { QLatin1String("builtIn"), Into(described.BuiltIn) },
            { QLatin1String("abstract"), Into(described.Abstract) }, { QLatin1String("unit"), Into(described.Unit) },
            { QLatin1String("alsoUses"), Into(described.AlsoUses) },
            { QLatin1String("palette"), Into(described.Palette) },
            { QLatin1String("container"), [&](const JsonValue& flag) { Into(described.Container.emplace())(flag); } },
            { QLatin1String("defaultSize"), [&](const JsonValue& size) { ReadSize(size, described.DefaultSize); } },
            { QLatin1String("draw"), Into(described.Draw) },
            { QLatin1String("captionProperty"), Into(described.CaptionProperty) },
            { QLatin1String("geometry"),
                [&](const JsonValue& object) {
                    auto& places = described.Geometry.emplace();
                    ReadMembers(object,
                        { { QLatin1String("left"), Into(places.Left) }, { QLatin1String("top"), Into(places.Top) },
                            { QLatin1String("width"), Into(places.Width) },
                            { QLatin1String("height"), Into(places.Height) } });
                } },
            { QLatin1String("include"), [&](const JsonValue& list) { ReadIncludes(list, described.Includes); } },
            { QLatin1String("properties"), [&](const JsonValue& list) { ReadProperties(list, described.Properties); } },
            { QLatin1String("events"), [&](const JsonValue& list) { ReadEvents(list, described.Properties); } },
            { QLatin1String("item"), Into(described.Item) },
            { QLatin1String("bindings"),
                [&](const JsonValue& object) {
                    auto& places = described.Bindings.emplace();
                    ReadMembers(object,
                        { { QLatin1String("source"), Into(places.Source) },
                            { QLatin1String("field"), Into(places.Field) } });
                } },
            { QLatin1String("creates"), [&](const JsonValue& list) { ReadCreates(list, described.Creates); } },
            { QLatin1String("connection"),
                [&](const JsonValue& object) { ReadConnection(object, described.Connection.emplace()); } },
            { QLatin1String("dataset"),
                [&](const JsonValue& object) { ReadDataSet(object, described.DataSet.emplace()); } },
            { QLatin1String("bitmap"), [&](const JsonValue& file) {
                 if (Is(file, JsonValue::Text))
                     described.Bitmap = FFolder + u'/' + file.String;
             } } });
    CheckClass(described);
}

void CatalogueReader::CheckClass(const CatalogueClass& described)
{
    if (!described.Draw.isEmpty() && !isDrawn(described.Draw))
        Tell(described.Offset, QStringLiteral("%1: nothing is drawn as '%2'").arg(described.Name, described.Draw));
    if (described.BuiltIn == described.Parent.isEmpty())
        return;
    Tell(described.Offset,
        described.BuiltIn ? QStringLiteral("%1 is built in and has its parent already").arg(described.Name)
                          : QStringLiteral("%1 names no parent").arg(described.Name));
}

void CatalogueReader::ReadSize(const JsonValue& value, std::optional<QSize>& size)
{
    if (!Is(value, JsonValue::Array))
        return;
    if (value.Items.size() != 2) {
        Tell(value.Offset, QStringLiteral("A size is a width and a height"));
        return;
    }
    if (Is(value.Items[0], JsonValue::Number) && Is(value.Items[1], JsonValue::Number))
        size = QSize(int(value.Items[0].Value), int(value.Items[1].Value));
}

void CatalogueReader::ReadIncludes(const JsonValue& value, QList<CatalogueInclude>& includes)
{
    if (!Is(value, JsonValue::Array))
        return;
    for (const auto& item : value.Items)
        if (Is(item, JsonValue::Text))
            includes << CatalogueInclude { item.String, item.Offset };
}

void CatalogueReader::ReadCreates(const JsonValue& value, QList<CreatedComponent>& creates)
{
    if (!Is(value, JsonValue::Array))
        return;
    for (const auto& item : value.Items) {
        CreatedComponent created;
        QHash<QString, QString> references;
        ReadMembers(item,
            { { QLatin1String("class"), Into(created.ClassName) }, { QLatin1String("name"), Into(created.Name) },
                { QLatin1String("references"), Into(references) } });
        for (auto entry = references.cbegin(); entry != references.cend(); ++entry)
            created.References.insert(entry.key(), entry.value());
        creates << created;
    }
}

void CatalogueReader::ReadConnection(const JsonValue& value, TConnectionRoles& roles)
{
    ReadMembers(value,
        { { QLatin1String("provider"), Into(roles.Provider) }, { QLatin1String("providers"), Into(roles.Providers) },
            { QLatin1String("providerName"), Into(roles.ProviderName) },
            { QLatin1String("server"), Into(roles.Server) }, { QLatin1String("port"), Into(roles.Port) },
            { QLatin1String("database"), Into(roles.Database) }, { QLatin1String("user"), Into(roles.UserName) },
            { QLatin1String("password"), Into(roles.Password) } });
}

void CatalogueReader::ReadDataSet(const JsonValue& value, TDataSetRoles& roles)
{
    ReadMembers(value,
        { { QLatin1String("connection"), Into(roles.Connection) }, { QLatin1String("sql"), Into(roles.SQL) },
            { QLatin1String("table"), Into(roles.Table) }, { QLatin1String("procedure"), Into(roles.Procedure) },
            { QLatin1String("params"), Into(roles.Params) },
            { QLatin1String("masterSource"), Into(roles.MasterSource) },
            { QLatin1String("masterFields"), Into(roles.MasterFields) },
            { QLatin1String("detailFields"), Into(roles.DetailFields) },
            { QLatin1String("commandType"), Into(roles.CommandType) },
            { QLatin1String("tableCommands"), Into(roles.TableCommands) },
            { QLatin1String("procedureCommands"), Into(roles.ProcedureCommands) },
            { QLatin1String("fieldTypes"), Into(roles.FieldTypes) } });
}
