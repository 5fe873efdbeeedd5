#include "model/MrvControlCreation.h"

#include "data/TDataSource.h"
#include "design/DataControls.h"
#include "rtl/Dialogs.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

bool ConfirmLink(const InterfacePtr<IDesigner>& designer, TComponent* owner, TComponent* instance)
{
    if (designer->IsComponentLinkable(owner))
        return true;
    const auto* root = designer->GetRoot();
    const auto question
        = Format(SDSLinkForms(), { root ? root->Name() : QString(), owner ? owner->Name() : QString() });
    if (MessageDlg(question, mtConfirmation, mbYes | mbNo | mbCancel) != mrYes)
        return false;
    designer->MakeComponentLinkable(instance);
    return true;
}

TClassGroupScope::TClassGroupScope(const InterfacePtr<IDesigner>& designer)
{
    const auto* root = designer->GetRoot();
    if (!root || root->ClassType().Group().isEmpty())
        return;
    FOld = ActivateClassGroup(root->ClassType());
    FChanged = true;
}

TClassGroupScope::~TClassGroupScope()
{
    if (FChanged)
        ActivateClassGroup(FOld);
}

TClass ControlClass(const InterfacePtr<IDesigner>& designer, const QString& className)
{
    TMrvUtils::EnsurePackageLoaded(className);
    const TClassGroupScope group(designer);
    try {
        return FindClass(className);
    } catch (const EClassNotFound&) {
        throw EClassNotFound(Format(sControlNotInstalled, { className }));
    }
}

QSize ControlSize(TClass controlClass)
{
    const std::unique_ptr<TPersistent> sample(controlClass.Create(nullptr));
    const auto* control = dynamic_cast<TControl*>(sample.get());
    return control ? QSize(control->Width(), control->Height()) : QSize(0, 0);
}

void SupportDevExpressEditors(TControl* control, TDataSource* source, const QString& fieldName)
{
    const auto name = QStringLiteral("DataBinding");
    const auto* property = GetPropInfo(control, name);
    if (!property || property->PropType.Kind != tkClass)
        return;
    auto* binding = GetObjectProp(control, name);
    if (!binding)
        return;
    SetClassProp(binding, QStringLiteral("DataSource"), TDataSource::Class(), source);
    SetStrProp(binding, QStringLiteral("DataField"), fieldName);
}
