#include "data/DataRoles.h"

#include "classes/TPersistent.h"
#include "rtl/SysUtils.h"

#include <unordered_map>

namespace {

// The tables as they were set, and completed ones as they were asked for. Nodes of std::unordered_map do not move.
template <class Roles>
struct RoleTables {
    std::unordered_map<const TClassInfo*, Roles> Given;
    std::unordered_map<const TClassInfo*, Roles> Completed;
};

template <class Roles>
RoleTables<Roles>& Tables()
{
    static RoleTables<Roles> tables;
    return tables;
}

template <class Value>
void Complete(Value& value, const Value& parents)
{
    if (value.isEmpty())
        value = parents;
}

void CompleteFrom(TDataSetRoles& roles, const TDataSetRoles& parent)
{
    for (const auto part : { &TDataSetRoles::Connection, &TDataSetRoles::SQL, &TDataSetRoles::Table,
             &TDataSetRoles::Procedure, &TDataSetRoles::Params, &TDataSetRoles::MasterSource,
             &TDataSetRoles::MasterFields, &TDataSetRoles::DetailFields, &TDataSetRoles::CommandType })
        Complete(roles.*part, parent.*part);
    Complete(roles.TableCommands, parent.TableCommands);
    Complete(roles.ProcedureCommands, parent.ProcedureCommands);
    Complete(roles.FieldTypes, parent.FieldTypes);
}

void CompleteFrom(TConnectionRoles& roles, const TConnectionRoles& parent)
{
    for (const auto part : { &TConnectionRoles::Provider, &TConnectionRoles::Server, &TConnectionRoles::Port,
             &TConnectionRoles::Database, &TConnectionRoles::UserName, &TConnectionRoles::Password })
        Complete(roles.*part, parent.*part);
    Complete(roles.Providers, parent.Providers);
    Complete(roles.ProviderName, parent.ProviderName);
}

template <class Roles>
const Roles& Completed(TClass aClass)
{
    auto& tables = Tables<Roles>();
    const auto known = tables.Completed.find(aClass.Info());
    if (known != tables.Completed.end())
        return known->second;
    Roles roles;
    for (auto walk = aClass; walk; walk = walk.ClassParent()) {
        const auto given = tables.Given.find(walk.Info());
        if (given != tables.Given.end())
            CompleteFrom(roles, given->second);
    }
    return tables.Completed.emplace(aClass.Info(), std::move(roles)).first->second;
}

template <class Roles>
void Set(TClass aClass, const Roles& roles)
{
    Tables<Roles>().Given[aClass.Info()] = roles;
    Tables<Roles>().Completed.clear();
}

// The part behind "name=" in "name=value;name=value"; quotes round a value are not part of it.
QString PartOf(const QString& text, QStringView name)
{
    for (const auto& piece : text.split(u';')) {
        const auto equals = piece.indexOf(u'=');
        if (equals < 0 || !SameText(QStringView(piece).left(equals).trimmed(), name))
            continue;
        auto value = piece.mid(equals + 1).trimmed();
        if (value.size() >= 2 && (value[0] == u'"' || value[0] == u'\'') && value.back() == value[0])
            value = value.mid(1, value.size() - 2);
        return value;
    }
    return {};
}

QString TextAtPlace(const TPersistent& object, const QString& place)
{
    const auto dot = place.indexOf(u'.');
    const auto property = place.left(dot);
    if (!GetPropInfo(&object, property))
        return {};
    const auto value = GetPropValue(&object, property);
    if (dot < 0)
        return value.toString();
    const auto name = place.mid(dot + 1);
    if (const auto* lines = dynamic_cast<TStrings*>(value.value<TPersistent*>()))
        return lines->Value(name);
    return PartOf(value.toString(), name);
}

}

void SetDataSetRoles(TClass aClass, const TDataSetRoles& roles)
{
    Set(aClass, roles);
}

void SetConnectionRoles(TClass aClass, const TConnectionRoles& roles)
{
    Set(aClass, roles);
}

const TDataSetRoles& GetDataSetRoles(TClass aClass)
{
    return Completed<TDataSetRoles>(aClass);
}

const TConnectionRoles& GetConnectionRoles(TClass aClass)
{
    return Completed<TConnectionRoles>(aClass);
}

QString TextAtPlaces(const TPersistent& object, const QStringList& places)
{
    for (const auto& place : places)
        if (const auto text = TextAtPlace(object, place); !text.isEmpty())
            return text;
    return {};
}
