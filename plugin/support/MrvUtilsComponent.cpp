#include "data/TCustomZAConnection.h"
#include "data/TCustomZADataSet.h"
#include "data/TCustomZASQL.h"
#include "design/DesignIntf.h"
#include "model/MrvInterfaces.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolsapi/OTAModules.h"

TCustomZAConnection* TMrvUtils::ExtractConnection(TComponent* component)
{
    TCustomZAConnection* connection = nullptr;
    if (auto* dataSet = dynamic_cast<TCustomZADataSet*>(component))
        connection = dataSet->GetConnection();
    if (auto* sql = dynamic_cast<TCustomZASQL*>(component))
        connection = sql->GetConnection();
    if (auto* script = dynamic_cast<TZAScript*>(component))
        connection = script->GetConnection();
    return connection;
}

QString TMrvUtils::ExtractConnectionName(TComponent* component)
{
    const auto* connection = ExtractConnection(component);
    return connection ? connection->Name() : QString();
}

void TMrvUtils::AssignConnections(TComponent* component, TCustomZAConnection* connection)
{
    if (auto* dataSet = dynamic_cast<TCustomZADataSet*>(component))
        dataSet->SetConnection(connection);
    else if (auto* sql = dynamic_cast<TCustomZASQL*>(component))
        sql->SetConnection(connection);
    else if (auto* script = dynamic_cast<TZAScript*>(component))
        script->SetConnection(connection);
    else
        Assert(false, QStringLiteral("MrvUtils"),
            Format(QStringLiteral("Component %s is not descendant TCustomZADataSet or TCustomZASQL or TZAScript"),
                { component ? component->Name() : QString() }));
}

QString TMrvUtils::ExtractUnitName(TComponent* component)
{
    const auto designer = InterfaceCast<IDesigner>(FindRootDesigner(component));
    QString unitName;
    QString formName;
    QString projectName;
    if (designer)
        designer->ModuleFileNames(unitName, formName, projectName);
    return unitName;
}

TComponent* TMrvUtils::ExtractComponent(const InterfacePtr<IOTAComponent>& component, const InterfacePtr<IDesigner>&)
{
    const auto native = InterfaceCast<INTAComponent>(component);
    return native ? native->GetComponent() : nullptr;
}

QString TMrvUtils::GetOwnerName(const TComponent* component)
{
    return component && component->Owner() ? component->Owner()->Name() : QString();
}

QString TMrvUtils::GetPropNameByClassType(const TPersistent* instance, TClass aClass)
{
    for (const auto* property : GetPropList(instance->ClassType(), { tkClass }))
        if (GetClass(property->PropType.Name).InheritsFrom(aClass))
            return property->Name;
    return {};
}

TMrvUtils::TPropList TMrvUtils::AllocPropList(TClass aClass)
{
    const auto count = GetPropList(aClass).size();
    return count < 1 ? nullptr : std::make_unique<const TPropInfo*[]>(size_t(count));
}

TMrvUtils::TPropList TMrvUtils::AllocPropList(const TPersistent* instance)
{
    return AllocPropList(instance->ClassType());
}

bool TMrvUtils::IsDataSetDescendant(const InterfacePtr<IInterface>& attr)
{
    const auto wrapper = InterfaceCast<IMrvCustomComponentAttr>(attr);
    return wrapper && !wrapper->IsDeleted() && !wrapper->IntfInheritsFrom(TCustomZASQLClassName)
        && !wrapper->IntfInheritsFrom(TZASctiptClassName);
}

bool TMrvUtils::IsProject(const QString& fileName)
{
    const auto extension = ExtractFileExt(fileName);
    for (const auto known : { u".dpr", u".bdsproj", u".dproj", u".dpk" })
        if (SameText(extension, known))
            return true;
    return false;
}

int TMrvUtils::StrToInt(const QString& text, int defaultValue)
{
    return text.isEmpty() ? defaultValue : ::StrToInt(text);
}
