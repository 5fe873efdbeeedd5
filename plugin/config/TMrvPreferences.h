#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"

#include <QList>

class QIODevice;
class TMrvConfigurationService;

// The preferences: texts by name, in the order of the file. A look-up costs no allocation.
//
// Keys in use: GroupMode (a number, which must be there), ScanAllForms, ShowFieldType, ShowObjectName,
// ShowDataFieldType ("True", "False"), DebugMode and DebugPath. Any other is kept and written back.
class TMrvPreferences : public Implements<TInterfacedObject, IMrvPreferences> {
public:
    // A line "Name=Value": a name holds no "=", a value may.
    struct TParam {
        QString Name;
        QString Value;
        friend bool operator==(const TParam&, const TParam&) = default;
    };
    using TParamList = QList<TParam>;

    // The service makes the preferences and outlives their loading.
    explicit TMrvPreferences(TMrvConfigurationService* service);

    void GetValueByName(const QString& name, QString& value) override;
    void SetValueByName(const QString& name, const QString& value) override;
    WordBool Modified() override { return FModified; }
    void Load() override;
    void LoadDefault() override;
    void InternalSave(QObject* writer) override;
    // Does nothing: loading empties the list.
    void Clear() override { }

    // Reads the stream, or the configuration file when it is nil, and takes what it holds. When that raises, the
    // preferences are as they were.
    void InternalLoad(QIODevice* stream);
    // The two halves of InternalLoad.
    TParamList Read(QIODevice* stream) const;
    void Take(TParamList params);

    void SetModified(bool modified) { FModified = modified; }

private:
    qsizetype IndexOfName(const QString& name) const;

    TMrvConfigurationService* FConfigurationService;
    TParamList FParamList;
    bool FModified = false;
};
