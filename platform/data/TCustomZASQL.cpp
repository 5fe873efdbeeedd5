#include "data/TCustomZASQL.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"
#include "data/StatementParts.h"
#include "data/TCustomZAConnection.h"

namespace {

TDataSetRoles StatementRoles()
{
    TDataSetRoles roles;
    roles.Connection = QStringLiteral("Connection");
    roles.SQL = QStringLiteral("SQL");
    roles.Params = QStringLiteral("Params");
    return roles;
}

// Connection, Params and SQL, as our own SQL and script components publish them.
template <class T>
TClass DescribedStatement(TClassInfo& info, const QString& name, TClass parent, const QString& unit)
{
    const auto built = TClassBuilder<T>(info, name, parent)
                           .Unit(unit)
                           .Stored(QStringLiteral("Connection"), ReferenceType(QStringLiteral("TCustomZAConnection")),
                               QVariant::fromValue<TPersistent*>(nullptr))
                           .SubObject(QStringLiteral("Params"), QStringLiteral("TParams"),
                               [](T& component) { return &component.Params(); })
                           .StoredIf([](const T& component) { return const_cast<T&>(component).Params().Count() > 0; })
                           .SubObject(QStringLiteral("SQL"), QStringLiteral("TStrings"),
                               [](T& component) { return &component.SQL(); })
                           .StoredIf([](const T& component) { return const_cast<T&>(component).SQL().Count() > 0; })
                           .Made();
    SetDataSetRoles(built, StatementRoles());
    return built;
}

TCustomZAConnection* ConnectionOf(const TComponent& component)
{
    return dynamic_cast<TCustomZAConnection*>(
        ReferenceAt(component, GetDataSetRoles(component.ClassType()).Connection));
}

}

TClass TCustomZASQL::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TCustomZASQL>(info, QStringLiteral("TCustomZASQL"), TComponent::Class())
                                   .Unit(QStringLiteral("ZASQL"))
                                   .Made();
    return made;
}

TCustomZASQL::TCustomZASQL(TComponent* owner)
    : TComponent(owner)
{
}

TCustomZAConnection* TCustomZASQL::GetConnection() const
{
    return ConnectionOf(*this);
}

void TCustomZASQL::SetConnection(TCustomZAConnection* connection)
{
    SetConnectionOf(*this, connection);
}

TClass TZASQL::Class()
{
    static TClassInfo info;
    static const TClass made
        = DescribedStatement<TZASQL>(info, QStringLiteral("TZASQL"), TCustomZASQL::Class(), QStringLiteral("ZASQL"));
    return made;
}

TZASQL::TZASQL(TComponent* owner)
    : TCustomZASQL(owner)
    , FSQL(this, QStringLiteral("SQL"))
    , FParams(this)
{
}

TClass TZAScript::Class()
{
    static TClassInfo info;
    static const TClass made = DescribedStatement<TZAScript>(
        info, QStringLiteral("TZAScript"), TComponent::Class(), QStringLiteral("ZAScript"));
    return made;
}

TZAScript::TZAScript(TComponent* owner)
    : TComponent(owner)
    , FSQL(this, QStringLiteral("SQL"))
    , FParams(this)
{
}

TCustomZAConnection* TZAScript::GetConnection() const
{
    return ConnectionOf(*this);
}

void TZAScript::SetConnection(TCustomZAConnection* connection)
{
    SetConnectionOf(*this, connection);
}
