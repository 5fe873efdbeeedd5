#pragma once

#include "classes/TComponent.h"
#include "data/TParams.h"

class TCustomZAConnection;

// The family of components that hold a statement and have no rows. Their parts are found by the roles of their class.
class TCustomZASQL : public TComponent {
    MRV_CLASS
    explicit TCustomZASQL(TComponent* owner = nullptr);
    TCustomZAConnection* GetConnection() const;
    // Writes the property of the class that holds the connection. Nil clears it. Raises EPropertyError for a connection
    // that the property cannot hold.
    void SetConnection(TCustomZAConnection* connection);
};

// Our own, with one statement.
class TZASQL : public TCustomZASQL {
    MRV_CLASS
    explicit TZASQL(TComponent* owner = nullptr);
    TStrings& SQL() { return FSQL; }
    TParams& Params() { return FParams; }

private:
    TStrings FSQL;
    TParams FParams;
};

// The family of components that hold a script of several statements, and our own one of it.
class TZAScript : public TComponent {
    MRV_CLASS
    explicit TZAScript(TComponent* owner = nullptr);
    TCustomZAConnection* GetConnection() const;
    void SetConnection(TCustomZAConnection* connection);
    TStrings& SQL() { return FSQL; }
    TParams& Params() { return FParams; }

private:
    TStrings FSQL;
    TParams FParams;
};
