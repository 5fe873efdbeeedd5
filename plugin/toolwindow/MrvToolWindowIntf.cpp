#include "toolwindow/MrvToolWindowIntf.h"

#include "config/MrvCfgIntf.h"
#include "ide/MrvServicesProxy.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"

InterfacePtr<IMrvDataSetList> MrvToolWindow::GetDataSetList()
{
    return MrvApiProxy ? MrvApiProxy->GetDataSetList() : nullptr;
}

InterfacePtr<IMrvIDEControlList> MrvToolWindow::GetIDECtrlList()
{
    InterfacePtr<IMrvIDEControlList> list;
    if (MrvApiProxy && MrvApiProxy->FMrvInteropServices)
        MrvApiProxy->FMrvInteropServices->GetIDECtrlList(list);
    return list;
}

InterfacePtr<IMrvPreferences> MrvToolWindow::GetPreferences()
{
    InterfacePtr<IMrvPreferences> preferences;
    if (MrvConfigurationService)
        MrvConfigurationService->GetPreferences(preferences);
    return preferences;
}

QString MrvToolWindow::FormName(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    QString name;
    attr->IntfFormName(name);
    return name;
}

QString MrvToolWindow::UnitName(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    QString name;
    attr->IntfUnitName(name);
    return name;
}

QString MrvToolWindow::ComponentName(const InterfacePtr<IMrvCustomComponentAttr>& attr, bool full)
{
    QString name;
    attr->IntfComponentName(full, name);
    return name;
}

QString MrvToolWindow::SessionName(const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    QString name;
    dataSet->IntfGetSessionName(name);
    return name;
}

QString MrvToolWindow::DisplayName(const InterfacePtr<IMrvFieldAttr>& field)
{
    QString name;
    field->IntfGetDisplayName(name);
    return name;
}

QString MrvToolWindow::DisplayName(const InterfacePtr<IMrvFieldDefAttr>& fieldDef, bool plain)
{
    QString name;
    fieldDef->GetDisplayName(name, plain);
    return name;
}

InterfacePtr<IMrvCustomComponentAttr> MrvToolWindow::Component(const InterfacePtr<IMrvDataSetAttr>& dataSet)
{
    return InterfaceCast<IMrvCustomComponentAttr>(dataSet);
}

bool MrvToolWindow::IsDataSetClass(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    return attr && attr->IntfInheritsFrom(TDataSetClassName);
}

bool MrvToolWindow::IsPlainGroup(const QString& name)
{
    return SameText(name, QString(sConnectionUnassigned)) || SameText(name, QString(sDefaultNode));
}
