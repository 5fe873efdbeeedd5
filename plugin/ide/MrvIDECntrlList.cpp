#include "ide/MrvIDECntrlList.h"

#include "classes/Controls.h"
#include "classes/TypInfo.h"
#include "data/TCustomZASQL.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvResample.h"

namespace {

constexpr int ImageSize = 16;

bool LoadOwnBitmap(const QString& name, TBitmap& bitmap)
{
    return bitmap.LoadFromResourceName(QStringLiteral(":/package/%1").arg(int(RT_BITMAP)), name);
}

bool LoadFromModule(const HMODULE& module, const QString& name, TBitmap& bitmap)
{
    return FindResource(module, name, RT_BITMAP)
        && bitmap.LoadFromResourceName(ResourceFolder(module, RT_BITMAP), name);
}

bool LoadFromRequired(const InterfacePtr<IOTAPackageInfo>& package, const QString& name, TBitmap& bitmap)
{
    for (const auto& required : package ? package->GetRequiredPackages() : QStringList())
        if (LoadFromModule(GetModuleHandle(required), name, bitmap))
            return true;
    return false;
}

// The palette picture of a class: the package's own, one of a package that it requires, or the general one.
TBitmap PalettePicture(IOTAPackageServices& services, int package, const QString& className)
{
    TBitmap bitmap;
    const auto name = className.toUpper();
    if (!LoadFromModule(GetModuleHandle(services.GetPackageName(package)), name, bitmap)
        && !LoadFromRequired(services.GetPackage(package), name, bitmap))
        LoadOwnBitmap(QStringLiteral("#105"), bitmap);
    return bitmap;
}

void ReplaceColor(TBitmap& bitmap, TColor from, TColor to)
{
    for (int x = 0; x < bitmap.Width(); ++x)
        for (int y = 0; y < bitmap.Height(); ++y)
            if (bitmap.Pixel(x, y) == from)
                bitmap.SetPixel(x, y, to);
}

// White stands in for the colour key while the picture is scaled, so white pixels of the source end up transparent too.
void ResampleAroundColorKey(TBitmap& bitmap)
{
    const auto key = bitmap.Pixel(0, bitmap.Height() - 1);
    ReplaceColor(bitmap, key, clWhite);
    Stretch(ImageSize, ImageSize, rfBox, 0, bitmap);
    ReplaceColor(bitmap, clWhite, key);
}

// What the published properties say about binding.
struct Binding {
    bool HasSource = false;
    bool HasField = false;
};

Binding BindingOf(TClass aClass)
{
    Binding binding;
    for (const auto* property : GetPropList(aClass)) {
        if (property->PropType.Kind == tkClass) {
            binding.HasSource |= SameText(property->PropType.Name, u"TDataSource");
            if (SameText(property->Name, u"DataBinding"))
                binding = { true, true };
        } else if (property->PropType.Kind == tkString) {
            binding.HasField |= SameText(property->Name, u"DataField");
        }
        if (binding.HasSource && binding.HasField)
            break;
    }
    return binding;
}

TClass RegisteredClass(const QString& className)
{
    if (const auto found = GetClass(className))
        return found;
    const auto project = GetActiveProject();
    if (!project || project->GetFrameworkType() == QLatin1String("FMX"))
        return nullptr;
    ActivateClassGroup(TControl::Class());
    return GetClass(className);
}

bool IsZAComponent(TClass aClass)
{
    return aClass.InheritsFrom(TCustomZASQL::Class()) || aClass.InheritsFrom(TZAScript::Class());
}

}

TIDEControlItem::TIDEControlItem(const QString& controlName, const QString& packageName)
    : FControlName(controlName)
    , FPackageName(packageName)
{
}

void TIDEControlItem::SetBitmap(const TBitmap& bitmap)
{
    FBitmap = bitmap;
    if (bitmap.Width() > ImageSize && bitmap.Height() > ImageSize)
        ResampleAroundColorKey(FBitmap);
    FMask.SetHandle(FBitmap.Image().createMaskFromColor(ToQColor(FBitmap.TransparentColor()).rgb()));
}

void TIDEControlList::Load()
{
    Clear();
    InternalLoad();
    FLoaded = true;
}

void TIDEControlList::Clear()
{
    FDsList.clear();
    FFldList.clear();
    FComponentList.clear();
}

void TIDEControlList::InternalLoad()
{
    const auto services = InterfaceCast<IOTAPackageServices>(BorlandIDEServices);
    const int count = services ? services->GetPackageCount() : 0;
    for (int package = 0; package < count; ++package)
        LoadPackage(*services, package);
}

void TIDEControlList::LoadPackage(IOTAPackageServices& services, int package)
{
    const int count = services.GetComponentCount(package);
    for (int component = 0; component < count; ++component) {
        const auto className = services.GetComponentName(package, component);
        const auto type = GetControlType(className);
        if (type != ctOther)
            AddItem(className, services.GetPackageName(package), type, PalettePicture(services, package, className));
    }
}

void TIDEControlList::AddItem(
    const QString& className, const QString& packageName, TControlType type, const TBitmap& bitmap)
{
    const auto item = New<TIDEControlItem>(className, packageName);
    item->SetBitmap(bitmap);
    *ListOf(type) << InterfacePtr<IMrvIDEControlItem>(item);
}

TIDEControlList::Items* TIDEControlList::ListOf(TControlType type)
{
    switch (type) {
    case ctDataSet:
        return &FDsList;
    case ctField:
        return &FFldList;
    case ctComponent:
        return &FComponentList;
    default:
        return nullptr;
    }
}

void TIDEControlList::GetFieldCtrl(int index, InterfacePtr<IMrvIDEControlItem>& item)
{
    item = FFldList.value(index);
}

void TIDEControlList::GetDataSetCtrl(int index, InterfacePtr<IMrvIDEControlItem>& item)
{
    item = FDsList.value(index);
}

WordBool TIDEControlList::IsVisualControl(const QString& className)
{
    const auto found = GetClass(className);
    return found && !IsZAComponent(found);
}

TControlType TIDEControlList::GetControlType(const QString& className) const
{
    if (SameText(className, u"TcxGrid"))
        return ctDataSet;
    const auto found = RegisteredClass(className);
    if (IsZAComponent(found))
        return ctComponent;
    if (!found.InheritsFrom(TControl::Class()))
        return ctOther;
    const auto binding = BindingOf(found);
    if (!binding.HasSource)
        return ctOther;
    return binding.HasField ? ctField : ctDataSet;
}

QImage TIDEControlList::GetImageByClassName(const QString& className, TControlType type)
{
    TBitmap bitmap;
    GetCtrlImageByClassName(className, type, bitmap);
    return bitmap.ReleaseHandle();
}

void TIDEControlList::GetCtrlImageByClassName(const QString& className, TControlType type, TBitmap& bitmap)
{
    bitmap.ReleaseHandle();
    if (SameText(className, NoneClassName))
        LoadOwnBitmap(QStringLiteral("#103"), bitmap);
    else if (SameText(className, DetailsClassName))
        LoadOwnBitmap(QStringLiteral("#104"), bitmap);
    else if (SameText(className, u"Default"))
        LoadOwnBitmap(QStringLiteral("#105"), bitmap);
    else if (const auto* items = ListOf(type))
        for (const auto& item : *items) {
            QString name;
            item->GetControlName(name);
            if (SameText(name, className)) {
                bitmap.SetHandle(item->GetImage());
                return;
            }
        }
}
