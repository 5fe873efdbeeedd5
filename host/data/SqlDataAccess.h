#pragma once

#include "data/DataAccess.h"
#include "data/SqlSession.h"

#include <QSet>

#include <optional>
#include <unordered_map>

// The host's data access over Qt SQL. While it lives it is the process's DataAccess(); there is one.
//
// Nothing connects until the user has allowed the project of the connection to (Allow). Sessions with servers stay open
// for the next question until the connection component changes, disconnects or goes; a file is opened for each.
class SqlDataAccess : public IDataAccess {
public:
    SqlDataAccess();
    SqlDataAccess(const SqlDataAccess&) = delete;
    SqlDataAccess& operator=(const SqlDataAccess&) = delete;
    ~SqlDataAccess();

    // Gives the file name of the project that a connection belongs to. Without it all belong to the empty name, and
    // relative files are taken from the working directory.
    using ProjectOf = std::function<QString(const TCustomZAConnection&)>;
    void SetProjectOf(ProjectOf projectOf) { FProjectOf = std::move(projectOf); }

    // The user's word for that project, and taking it back, which also closes what is open.
    void Allow(const QString& project) { FAllowed << project; }
    void Disallow(const QString& project);

    // Has a connection reach another database than its component says; see Retargeted. `connection` is "FORM.NAME",
    // without regard to case. The form is not touched. An empty target takes it back. Raises EConvertError.
    void Retarget(const QString& connection, const QString& target);

    // Asks the user for what is missing to log in, for a server's connection with LoginPrompt and without a password.
    // False stops with EAbort. What it gave is kept in memory until the connection goes.
    using Login = std::function<bool(const TCustomZAConnection&, TConnectionParameters&)>;
    void SetLogin(Login login) { FLogin = std::move(login); }

    // Where the connection leads: what its component says, retargeted, with a file's whole name.
    TConnectionParameters TargetOf(const TCustomZAConnection& connection) const;

    bool IsAllowed(const TCustomZAConnection& connection) override;
    void Connect(TCustomZAConnection& connection) override;
    void Disconnect(TCustomZAConnection& connection) override;
    QList<TDataColumn> Describe(TCustomZAConnection& connection, const TStatement& statement) override;
    TRowSet Query(TCustomZAConnection& connection, const TStatement& statement, int maxRows,
        const std::function<bool()>& cancelled) override;
    QStringList TableNames(TCustomZAConnection& connection) override;
    void Forget(const TCustomZAConnection& connection) override;

private:
    struct Known {
        std::unique_ptr<SqlSession> Session;
        // What the user gave at the login.
        std::optional<TConnectionParameters> LoggedIn;
    };
    QString Project(const TCustomZAConnection& connection) const;
    // The open session; raises EDatabaseError with the connection's name in front.
    SqlSession& NeedSession(const TCustomZAConnection& connection);
    SqlSession& Session(const TCustomZAConnection& connection);
    TConnectionParameters WithLogin(const TCustomZAConnection& connection, TConnectionParameters parameters);

    ProjectOf FProjectOf;
    Login FLogin;
    QSet<QString> FAllowed;
    QHash<QString, QString> FTargets;
    std::unordered_map<const TCustomZAConnection*, Known> FKnown;
};
