#pragma once

#include "config/TBindableControlInfoList.h"

#include <QVariantList>

class QIODevice;
class TMrvConfigurationService;
class XmlTextReader;
class XmlTextWriter;

// Which control classes can be bound, for one personality: to a dataset, and per field group to a field. Plain data:
// class names are texts, and nothing here looks at the controls that are installed.
//
// A field group has a name, which stands in the file, and a value, which field types are matched with. The groups exist
// from the first load on; loading makes them and their lists anew. The dataset list stays the same object.
class TMrvPersonality : public Implements<TInterfacedObject, IMrvPersonalityUISettings> {
public:
    // What a load has read, not yet taken over: the attributes of the dataset section, and of each group in the order
    // of the file.
    struct TAttribute {
        QString Name;
        QString Value;
    };
    struct TSection {
        QString GroupName; // empty for the dataset section
        QList<TAttribute> Attributes;
    };
    using TSections = QList<TSection>;

    // The service makes the personality and outlives its loading.
    TMrvPersonality(TMrvConfigurationService* service, TPersonality personality);

    void GetDefaultBindClassName(
        const InterfacePtr<IMrvCustomComponentAttr>& attr, InterfacePtr<IMrvBindableControlInfo>& item) override;
    void EnumBindClassList(
        const InterfacePtr<IMrvCustomComponentAttr>& attr, InterfacePtr<IMrvBindableControlInfoList>& list) override;
    int GetDataSetCtrlCount() override;
    int GetFieldCtrlCount(const InterfacePtr<IMrvFieldAttr>& attr) override;
    int FieldGroupCount() override { return int(FFieldGroupList.size()); }
    void GetFieldGroup(int group, QString& name) override;
    void GetDataSetBindCtrlInfoList(InterfacePtr<IMrvBindableControlInfoList>& list) override;
    void GetFieldBindCtrlInfoList(InterfacePtr<IMrvBindableControlInfoList>& list, int group) override;
    void DeleteDataSetInfo(const QString& className) override;
    void DeleteFieldInfo(int group, const QString& className) override;
    void AddDataSetInfo(const QString& caption, const QString& className) override;
    void AddFieldInfo(int group, const QString& caption, const QString& className) override;
    void SetDefaultDataSetInfo(const QString& className) override;
    void SetDefaultFieldInfo(int group, const QString& className) override;
    WordBool Modified() override { return FModified; }
    void Load() override;
    void LoadDefault() override;
    int GetFieldGroupIndex(const QString& name) override;
    void InternalSave(QObject* writer) override;
    // Empties the groups; the dataset list is not touched.
    void Clear() override;

    // Reads the stream, or the configuration file when it is nil, and takes what it holds. When that raises, the
    // personality is as it was.
    void InternalLoad(QIODevice* stream);
    // The two halves of InternalLoad.
    TSections Read(QIODevice* stream) const;
    void Take(const TSections& sections);

    // Adds groups, each with an empty list: names and values in turn. An odd count raises EAssertionFailed.
    void AddGroup(const QVariantList& args);
    // The value of a group.
    int GroupValue(int group) const;
    void SetModified(bool modified) { FModified = modified; }

private:
    struct TGroup {
        QString Name;
        int Value;
    };

    void LoadFieldGroup();
    int IndexOfGroup(QStringView name) const;
    int IndexOfValue(int value) const;
    const TGroup& Group(int group) const;
    TBindableControlInfoList& FieldList(int group);
    InterfacePtr<IMrvBindableControlInfoList> FindFieldList(IInterface* attr);
    QString PersonalityName() const;

    TMrvConfigurationService* FConfigurationService;
    TPersonality FPersonality;
    WordBool FModified;
    InterfacePtr<TBindableControlInfoList> FDataSetBindControlList;
    QList<TGroup> FFieldGroupList;
    InterfacePtr<TInterfaceList<TBindableControlInfoList>> FFieldBindControlList;
};
