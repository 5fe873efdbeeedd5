#include "data/TCustomZAConnection.h"

#include "classes/TClassBuilder.h"
#include "data/DataRoles.h"
#include "data/PropertyTypes.h"
#include "data/TCustomZADataSet.h"

TClass TCustomZAConnection::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCustomZAConnection>(info, QStringLiteral("TCustomZAConnection"), TComponent::Class())
              .Unit(QStringLiteral("ZAConnection"))
              .Property(QStringLiteral("Connected"), &TCustomZAConnection::StoredConnected,
                  &TCustomZAConnection::SetStoredConnected, false)
              .Made();
    return made;
}

TCustomZAConnection::TCustomZAConnection(TComponent* owner)
    : TComponent(owner)
{
}

TCustomZAConnection::~TCustomZAConnection()
{
    Destroying();
    // Their stored reference is cleared, and reported as changed, when the component goes.
    for (auto* dataSet : std::as_const(FDataSets))
        static_cast<TCustomZADataSet*>(dataSet)->FConnection = nullptr;
    if (auto* access = DataAccess())
        access->Forget(*this);
}

void TCustomZAConnection::SetStoredConnected(bool connected)
{
    SetStoredValue(QStringLiteral("Connected"), connected);
}

void TCustomZAConnection::Open()
{
    if (FOpen)
        return;
    auto* access = DataAccess();
    if (!access)
        throw EDatabaseError(QStringLiteral("%1: nothing here reaches databases").arg(Name()));
    access->Connect(*this);
    FOpen = true;
    FClosedForNow = false;
}

void TCustomZAConnection::Close()
{
    for (auto* dataSet : QList(FDataSets))
        if (dataSet->IsOpen())
            dataSet->Close();
    FClosedForNow = StoredConnected();
    Drop();
}

void TCustomZAConnection::Drop()
{
    if (std::exchange(FOpen, false) && DataAccess())
        DataAccess()->Disconnect(*this);
}

// Anything that a connection says may lead to another database: what its datasets learnt there holds no longer.
void TCustomZAConnection::PropertyChanged(const QString& property)
{
    if (property == QLatin1String("Connected")) {
        FClosedForNow = false;
        if (!StoredConnected())
            Drop();
        return;
    }
    if (HasState(csLoading) || HasState(csDestroying))
        return;
    for (auto* dataSet : std::as_const(FDataSets))
        static_cast<TCustomZADataSet*>(dataSet)->ForgetDefinitions();
    Drop();
}

TConnectionParameters TCustomZAConnection::ConnectionParameters() const
{
    const auto& roles = GetConnectionRoles(ClassType());
    const auto provider = TextAtPlaces(*this, roles.Provider);
    TConnectionParameters parameters;
    parameters.Provider = roles.ProviderName.isEmpty() ? roles.Providers.value(provider, provider) : roles.ProviderName;
    parameters.Server = TextAtPlaces(*this, roles.Server);
    parameters.Port = TextAtPlaces(*this, roles.Port).toInt();
    parameters.Database = TextAtPlaces(*this, roles.Database);
    parameters.UserName = TextAtPlaces(*this, roles.UserName);
    parameters.Password = TextAtPlaces(*this, roles.Password);
    return parameters;
}

TClass TZAConnection::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        const auto built
            = TClassBuilder<TZAConnection>(info, QStringLiteral("TZAConnection"), TCustomZAConnection::Class())
                  .Unit(QStringLiteral("ZAConnection"))
                  .Stored(QStringLiteral("ProviderName"), StringType(), QString())
                  .Stored(QStringLiteral("Server"), StringType(), QString())
                  .Stored(QStringLiteral("Port"), IntegerType(), 0)
                  .Stored(QStringLiteral("Database"), StringType(), QString())
                  .Stored(QStringLiteral("Username"), StringType(), QString())
                  .Stored(QStringLiteral("Password"), StringType(), QString())
                  .Stored(QStringLiteral("LoginPrompt"), BooleanType(), true)
                  .Made();
        TConnectionRoles roles;
        roles.Provider = QStringList { QStringLiteral("ProviderName") };
        roles.Server = QStringList { QStringLiteral("Server") };
        roles.Port = QStringList { QStringLiteral("Port") };
        roles.Database = QStringList { QStringLiteral("Database") };
        roles.UserName = QStringList { QStringLiteral("Username") };
        roles.Password = QStringList { QStringLiteral("Password") };
        SetConnectionRoles(built, roles);
        return built;
    }();
    return made;
}
