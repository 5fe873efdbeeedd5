#pragma once

#include "classes/TComponent.h"
#include "data/DataAccess.h"

class TDataSet;
class TCustomZADataSet;

// The family of connections to a database, ours and those of the catalogues.
//
// As with TDataSet there is what the form file stores (the published property Connected, which connects nothing when it
// is read or written) and what is: Open connects when the user asks for it. Connected() is what a plug-in sees.
class TCustomZAConnection : public TComponent {
    MRV_CLASS
    explicit TCustomZAConnection(TComponent* owner = nullptr);
    ~TCustomZAConnection() override;

    bool Connected() const { return FOpen || (StoredConnected() && !FClosedForNow); }
    // Raises EDatabaseError when the database cannot be reached, or when the user has not allowed it.
    void Open();
    // Closes its open datasets too.
    void Close();
    bool IsOpen() const { return FOpen; }
    bool StoredConnected() const { return StoredValue(QStringLiteral("Connected"), false).toBool(); }
    void SetStoredConnected(bool connected);

    // The datasets of the family TCustomZADataSet whose connection this is, on whatever form, in the order in which
    // they took it.
    const QList<TDataSet*>& DataSets() const { return FDataSets; }
    // What the component says, found by the roles of its class.
    TConnectionParameters ConnectionParameters() const;

protected:
    void PropertyChanged(const QString& property) override;

private:
    friend class TCustomZADataSet;
    void Drop();

    QList<TDataSet*> FDataSets;
    bool FOpen = false;
    // Somebody closed what the form file stores as connected.
    bool FClosedForNow = false;
};

// Our own connection.
class TZAConnection : public TCustomZAConnection {
    MRV_CLASS
    using TCustomZAConnection::TCustomZAConnection;
};
