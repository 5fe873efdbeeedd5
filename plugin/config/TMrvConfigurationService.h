#pragma once

#include "config/TMrvPersonality.h"
#include "config/TMrvPreferences.h"

// The embedded default configuration, a resource of kind RT_RCDATA.
extern const QString DefaultConfigurationName;

// The root of the configuration: finds the file, makes it from the embedded default where there is none, and drives
// load, save, reset and the modified test over the preferences and the personalities, which it owns by reference.
// One object per process.
class TMrvConfigurationService : public Implements<TInterfacedObject, IMrvConfigurationService> {
public:
    // Finds or makes the file and loads it. Raises EFCreateError, EFOpenError or EXmlError; a file that exists is
    // never repaired or replaced here.
    TMrvConfigurationService();

    void GetPreferences(InterfacePtr<IMrvPreferences>& preferences) override;
    // Nil while the active personality is a number that is none.
    void GetCurrentPersonality(InterfacePtr<IMrvPersonalityUISettings>& personality) override;
    // When it raises, everything is as it was before.
    void Load() override;
    void LoadDefault() override;
    // When it raises, file and modified flags are as they were before.
    void Save() override;
    WordBool Modified() override;
    void SetAcitvePersonality(int value) override { FActivePersonality = TPersonality(quint8(value)); }
    TPersonality GetActivePersonality() override { return FActivePersonality; }

    void Clear();
    // The directory as it is configured, followed by the name, with no separator between them.
    QString FileName() const;

private:
    void FindDirectory();
    void CreateFileFromDefault() const;
    TMrvPersonality* CurrentPersonality() const;

    InterfacePtr<TInterfaceList<TMrvPersonality>> FPersonalityList;
    InterfacePtr<TMrvPreferences> FPreferences;
    TPersonality FActivePersonality = prVCL;
    QString FConfigFilePath;
};
