#include "classes/TClass.h"

#include "classes/TPersistent.h"
#include "classes/TypInfo.h"
#include "rtl/SysUtils.h"

QString TClass::ClassName() const
{
    return FInfo ? FInfo->Name : QString();
}

bool TClass::ClassNameIs(QStringView name) const
{
    return FInfo && SameText(FInfo->Name, name);
}

TClass TClass::ClassParent() const
{
    return FInfo ? FInfo->Parent : TClass();
}

bool TClass::InheritsFrom(TClass ancestor) const
{
    if (!ancestor)
        return false;
    for (auto walk = *this; walk; walk = walk.ClassParent())
        if (walk == ancestor)
            return true;
    return false;
}

bool TClass::InheritsFromNamed(QStringView name) const
{
    for (auto walk = *this; walk; walk = walk.ClassParent())
        if (walk.ClassNameIs(name))
            return true;
    return false;
}

QString TClass::UnitName() const
{
    return FInfo ? FInfo->Unit : QString();
}

QString TClass::Group() const
{
    return FInfo ? FInfo->Group : QString();
}

bool TClass::IsAbstract() const
{
    return FInfo && FInfo->Abstract;
}

namespace {

const TClassInfo* NearestFactory(const TClassInfo* info)
{
    while (info && !info->Factory)
        info = info->Parent.Info();
    return info;
}

void RunInit(const TClassInfo* info, TPersistent* made)
{
    if (!info)
        return;
    RunInit(info->Parent.Info(), made);
    if (info->Init)
        info->Init(made);
}

}

TPersistent* TClass::Create(TComponent* owner) const
{
    const auto* maker = NearestFactory(FInfo);
    if (!maker || FInfo->Abstract)
        throw EInvalidOperation(QStringLiteral("Class %1 cannot be created").arg(ClassName()));
    auto* made = maker->Factory(owner);
    if (maker != FInfo)
        made->SetDynamicClass(*this);
    RunInit(FInfo, made);
    return made;
}
