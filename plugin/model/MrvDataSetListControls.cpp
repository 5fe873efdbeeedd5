#include "data/TDataSet.h"
#include "data/TDataSource.h"
#include "design/DesignIntf.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

namespace {

constexpr int SourceOffsetX = 18;
constexpr int SourceOffsetY = 23;
constexpr int SourceSize = 30;

TDataSource* FindDataSource(const InterfacePtr<IDesigner>& designer, const TDataSet* dataSet)
{
    const auto* root = designer ? designer->GetRoot() : nullptr;
    if (!root)
        return nullptr;
    for (auto* component : root->Components())
        if (auto* source = dynamic_cast<TDataSource*>(component); source && source->DataSet() == dataSet)
            return source;
    return nullptr;
}

}

TDataSource* TDataSetList::GetDataSource(
    const InterfacePtr<IDesigner>& designer, TDataSet* dataSet, TComponent* control, int x, int y)
{
    const auto own = InterfaceCast<IDesigner>(FindRootDesigner(dataSet->Owner()));
    Assert(bool(own), QStringLiteral("MrvClasses"));
    if (auto* source = FindDataSource(own, dataSet))
        return source;
    if (auto* source = FindDataSource(designer, dataSet))
        return source;
    auto* source = dynamic_cast<TDataSource*>(designer->CreateComponent(
        TDataSource::Class(), control, x + SourceOffsetX, y + SourceOffsetY, SourceSize, SourceSize));
    if (!source)
        throw EInvalidCast(QStringLiteral("Invalid class typecast"));
    source->SetDataSet(dataSet);
    designer->Modified();
    return source;
}

void TDataSetList::CreateDefaultControl(const QString& targetName, const QString& dataSetName)
{
    try {
        const auto designer = FSvcManager->GetActiveDesigner();
        if (!designer)
            return;
        if (const InterfacePtr<TDataSetAttr> attr = GetDataSetAttrByObj(designer->GetComponent(dataSetName)))
            attr->IntfCreateControl(targetName, targetName, -1, -1, true);
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TDataSetList.CreateDefaultControl - failed!"), exception);
    }
}
