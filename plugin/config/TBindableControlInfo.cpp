#include "config/TBindableControlInfo.h"

#include "rtl/SysUtils.h"
#include "support/MrvConst.h"

TBindableControlInfo::TBindableControlInfo(const QString& caption, const QString& className)
    : FCaption(caption)
    , FClassName(className)
{
}

void TBindableControlInfo::Assign(const InterfacePtr<IMrvBindableControlInfo>& source)
{
    source->GetCaption(FCaption);
    source->GetClassName(FClassName);
}

QString ClassNameOf(const InterfacePtr<IMrvBindableControlInfo>& item)
{
    QString className;
    item->GetClassName(className);
    return className;
}

QString CaptionOf(const InterfacePtr<IMrvBindableControlInfo>& item)
{
    QString caption;
    item->GetCaption(caption);
    return caption;
}

bool IsPseudoControl(const QString& name)
{
    return SameText(name, NoneClassName) || SameText(name, DetailsClassName);
}
