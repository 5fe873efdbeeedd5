#include "data/SqlDataAccess.h"

#include "data/DatabaseTarget.h"
#include "data/TCustomZAConnection.h"
#include "rtl/SysUtils.h"

#include <QDir>
#include <QFileInfo>

SqlDataAccess::SqlDataAccess()
{
    SetDataAccess(this);
}

SqlDataAccess::~SqlDataAccess()
{
    SetDataAccess(nullptr);
}

void SqlDataAccess::Disallow(const QString& project)
{
    FAllowed.remove(project);
    for (auto& [connection, known] : FKnown)
        if (Project(*connection) == project)
            known.Session.reset();
}

void SqlDataAccess::Retarget(const QString& connection, const QString& target)
{
    if (target.isEmpty()) {
        FTargets.remove(connection.toLower());
        return;
    }
    Retargeted({}, target);
    FTargets.insert(connection.toLower(), target);
}

QString SqlDataAccess::Project(const TCustomZAConnection& connection) const
{
    return FProjectOf ? FProjectOf(connection) : QString();
}

TConnectionParameters SqlDataAccess::TargetOf(const TCustomZAConnection& connection) const
{
    auto parameters = connection.ConnectionParameters();
    const auto form = connection.Owner() ? connection.Owner()->Name() : QString();
    const auto target = FTargets.value((form + u'.' + connection.Name()).toLower());
    if (!target.isEmpty())
        return Retargeted(parameters, target);
    const auto* driver = SqlDriver::Find(parameters.Provider);
    if (driver && driver->IsFile()) {
        const auto project = Project(connection);
        const auto folder = project.isEmpty() ? QDir::currentPath() : QFileInfo(project).absolutePath();
        parameters.Database = DatabaseFile(parameters.Database, folder);
    }
    return parameters;
}

bool SqlDataAccess::IsAllowed(const TCustomZAConnection& connection)
{
    return FAllowed.contains(Project(connection));
}

namespace {

bool AsksForLogin(const TCustomZAConnection& connection)
{
    const auto* prompt = GetPropInfo(&connection, QStringLiteral("LoginPrompt"));
    return prompt && prompt->Get(&connection).toBool();
}

bool SameTarget(const TConnectionParameters& a, const TConnectionParameters& b)
{
    return a.Provider == b.Provider && a.Server == b.Server && a.Port == b.Port && a.Database == b.Database
        && a.UserName == b.UserName && a.Password == b.Password;
}

}

TConnectionParameters SqlDataAccess::WithLogin(const TCustomZAConnection& connection, TConnectionParameters parameters)
{
    const auto* driver = SqlDriver::Find(parameters.Provider);
    if (!FLogin || driver->IsFile() || !parameters.Password.isEmpty() || !AsksForLogin(connection))
        return parameters;
    auto& known = FKnown[&connection];
    if (!known.LoggedIn) {
        if (!FLogin(connection, parameters))
            Abort();
        known.LoggedIn = parameters;
    }
    return *known.LoggedIn;
}

SqlSession& SqlDataAccess::Session(const TCustomZAConnection& connection)
{
    if (!IsAllowed(connection)) {
        const auto project = QFileInfo(Project(connection)).fileName();
        throw EDatabaseError(QStringLiteral("connecting to databases is not allowed for %1")
                                 .arg(project.isEmpty() ? QStringLiteral("this project") : project));
    }
    const auto target = TargetOf(connection);
    const auto* driver = SqlDriver::Find(target.Provider);
    if (!driver)
        throw EDatabaseError(target.Provider.isEmpty()
                ? QStringLiteral("the connection names no provider")
                : QStringLiteral("the provider %1 cannot be reached; these can: %2")
                      .arg(target.Provider, SqlDriver::Providers().join(QLatin1String(", "))));
    const auto parameters = WithLogin(connection, target);
    auto& known = FKnown[&connection];
    if (!known.Session || driver->IsFile() || !SameTarget(known.Session->Parameters(), parameters)) {
        known.Session.reset();
        known.Session = std::make_unique<SqlSession>(*driver, parameters);
    }
    return *known.Session;
}

namespace {

// What goes wrong is told with the connection's name in front.
template <class Work>
decltype(auto) ToldWith(const TCustomZAConnection& connection, const Work& work)
{
    try {
        return work();
    } catch (const EDatabaseError& error) {
        throw EDatabaseError(connection.Name() + QLatin1String(": ") + error.Message());
    }
}

}

SqlSession& SqlDataAccess::NeedSession(const TCustomZAConnection& connection)
{
    return ToldWith(connection, [&]() -> SqlSession& { return Session(connection); });
}

void SqlDataAccess::Connect(TCustomZAConnection& connection)
{
    NeedSession(connection);
}

void SqlDataAccess::Disconnect(TCustomZAConnection& connection)
{
    const auto known = FKnown.find(&connection);
    if (known != FKnown.end())
        known->second.Session.reset();
}

QList<TDataColumn> SqlDataAccess::Describe(TCustomZAConnection& connection, const TStatement& statement)
{
    return NeedSession(connection).Describe(statement);
}

TRowSet SqlDataAccess::Query(
    TCustomZAConnection& connection, const TStatement& statement, int maxRows, const std::function<bool()>& cancelled)
{
    return NeedSession(connection).Read(statement, maxRows, cancelled);
}

QStringList SqlDataAccess::TableNames(TCustomZAConnection& connection)
{
    return NeedSession(connection).TableNames();
}

void SqlDataAccess::Forget(const TCustomZAConnection& connection)
{
    FKnown.erase(&connection);
}
