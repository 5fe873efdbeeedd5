#include "data/StatementParts.h"

#include "classes/TComponent.h"
#include "data/TCustomZAConnection.h"
#include "rtl/SysUtils.h"

TPersistent* ReferenceAt(const TPersistent& object, const QString& property)
{
    const auto* found = property.isEmpty() ? nullptr : GetPropInfo(&object, property);
    return found && found->PropType.Kind == tkClass ? found->Get(&object).value<TPersistent*>() : nullptr;
}

void SetConnectionOf(TComponent& component, TCustomZAConnection* connection)
{
    const auto property = GetDataSetRoles(component.ClassType()).Connection;
    const auto* published = property.isEmpty() ? nullptr : GetPropInfo(&component, property);
    if (!published)
        throw EPropertyError(QStringLiteral("A %1 has no connection").arg(component.ClassName()));
    const auto declared = GetClass(published->PropType.Name);
    if (connection && declared && !connection->InheritsFrom(declared))
        throw EPropertyError(
            QStringLiteral("%1.%2 takes a %3, and %4 is a %5")
                .arg(component.Name(), property, declared.ClassName(), connection->Name(), connection->ClassName()));
    published->Set(&component, QVariant::fromValue<TPersistent*>(connection));
}

namespace {

QVariant ItemValue(const TPersistent& item, const QString& name)
{
    return GetPropInfo(&item, name) ? GetPropValue(&item, name) : item.StoredValue(name);
}

// The text of a property that holds lines, a string, or scripts with lines of their own.
QString TextOf(const QVariant& value)
{
    const auto* object = value.value<TPersistent*>();
    if (!object)
        return value.toString();
    if (const auto* lines = dynamic_cast<const TStrings*>(object))
        return lines->Lines().join(u'\n');
    const auto* items = dynamic_cast<const TCollection*>(object);
    QStringList texts;
    for (int i = 0; items && i < items->Count(); ++i)
        texts << TextOf(ItemValue(*items->Item(i), QStringLiteral("SQL")));
    return texts.join(u'\n');
}

QString TextAt(const TPersistent& object, const QString& property)
{
    return property.isEmpty() || !GetPropInfo(&object, property) ? QString() : TextOf(GetPropValue(&object, property));
}

QList<TStatementParameter> ParametersOf(const TPersistent& component, const QString& property)
{
    QList<TStatementParameter> parameters;
    const auto* items = dynamic_cast<TCollection*>(ReferenceAt(component, property));
    for (int i = 0; items && i < items->Count(); ++i) {
        const auto& item = *items->Item(i);
        const int type = GetEnumValue(FieldTypeInfo(), ItemValue(item, QStringLiteral("DataType")).toString());
        parameters.append({ ItemValue(item, QStringLiteral("Name")).toString(), TFieldType(std::max(type, 0)),
            ItemValue(item, QStringLiteral("Value")) });
    }
    return parameters;
}

}

TStatement StatementOf(const TPersistent& component, const TDataSetRoles& roles)
{
    TStatement statement;
    statement.Parameters = ParametersOf(component, roles.Params);
    statement.Text = TextAt(component, roles.SQL);
    const auto commandType = TextAt(component, roles.CommandType);
    if (roles.TableCommands.contains(commandType, Qt::CaseInsensitive))
        statement.Kind = TStatement::Table;
    else if (roles.ProcedureCommands.contains(commandType, Qt::CaseInsensitive))
        statement.Kind = TStatement::Procedure;
    if (!statement.Text.trimmed().isEmpty())
        return statement;
    const auto procedure = TextAt(component, roles.Procedure);
    statement.Kind = procedure.isEmpty() ? TStatement::Table : TStatement::Procedure;
    statement.Text = procedure.isEmpty() ? TextAt(component, roles.Table) : procedure;
    if (statement.Text.isEmpty())
        statement.Kind = TStatement::Sql;
    return statement;
}
