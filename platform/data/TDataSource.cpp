#include "data/TDataSource.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"
#include "data/TDataLink.h"

TClass TDataSource::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TDataSource>(info, QStringLiteral("TDataSource"), TComponent::Class())
              .Unit(QStringLiteral("Data.DB"))
              .Stored(QStringLiteral("AutoEdit"), BooleanType(), true)
              .Reference<TDataSet>(QStringLiteral("DataSet"), QStringLiteral("TDataSet"), &TDataSource::DataSet,
                  &TDataSource::SetDataSet)
              .Property(QStringLiteral("Enabled"), &TDataSource::Enabled, &TDataSource::SetEnabled, true)
              .Stored(QStringLiteral("OnDataChange"), EventType(QStringLiteral("TDataChangeEvent")), QString())
              .Stored(QStringLiteral("OnStateChange"), EventType(QStringLiteral("TNotifyEvent")), QString())
              .Stored(QStringLiteral("OnUpdateData"), EventType(QStringLiteral("TNotifyEvent")), QString())
              .Made();
    return made;
}

TDataSource::TDataSource(TComponent* owner)
    : TComponent(owner)
{
}

TDataSource::~TDataSource()
{
    for (const auto links = std::exchange(FLinks, {}); auto* link : links) {
        link->FDataSource = nullptr;
        link->DataEvent(deLayoutChange, 0);
    }
    if (FDataSet)
        FDataSet->FDataSources.removeOne(this);
}

void TDataSource::SetDataSet(TDataSet* dataSet)
{
    if (dataSet == FDataSet)
        return;
    if (FDataSet)
        FDataSet->FDataSources.removeOne(this);
    FDataSet = dataSet;
    if (FDataSet)
        FDataSet->FDataSources << this;
    Changed(QStringLiteral("DataSet"));
    DataEvent(deLayoutChange, 0);
}

void TDataSource::SetEnabled(bool enabled)
{
    if (std::exchange(FEnabled, enabled) == enabled)
        return;
    Changed(QStringLiteral("Enabled"));
    DataEvent(deUpdateState, 0);
}

void TDataSource::DataEvent(TDataEvent event, qintptr info)
{
    if (!FEnabled && event != deUpdateState)
        return;
    for (auto* link : QList(FLinks))
        if (FLinks.contains(link))
            link->DataEvent(event, info);
    if (FOnDataChange && event != dePropertyChange && event != deFieldListChange)
        FOnDataChange(this, event == deFieldChange ? reinterpret_cast<TField*>(info) : nullptr);
}

TDataLink::~TDataLink()
{
    if (FDataSource)
        FDataSource->FLinks.removeOne(this);
}

void TDataLink::SetDataSource(TDataSource* dataSource)
{
    if (dataSource == FDataSource)
        return;
    if (FDataSource)
        FDataSource->FLinks.removeOne(this);
    FDataSource = dataSource;
    if (FDataSource)
        FDataSource->FLinks << this;
    DataEvent(deLayoutChange, 0);
}

TDataSet* TDataLink::DataSet() const
{
    return FDataSource ? FDataSource->DataSet() : nullptr;
}
