#include "FormAudit.h"

#include "classes/TComponent.h"
#include "classes/TypInfo.h"

#include <QRegularExpression>

namespace {

// What components write without publishing it: where an icon stands, what a designer remembers.
bool IsUnpublished(const QString& path)
{
    static const QRegularExpression names(
        QStringLiteral("^(Left|Top|Height|Width|Explicit(Left|Top|Width|Height)|TextHeight|PixelsPerInch|DesignSize|"
                       "IgnoreFontProperty|LCLVersion|Bitmap|Data|ParamData|ActionBar|BoundLabel\\..*)$"),
        QRegularExpression::CaseInsensitiveOption);
    return names.match(path).hasMatch();
}

bool IsOneOf(const QStringList& names, const QString& name)
{
    return names.contains(name, Qt::CaseInsensitive);
}

bool Fits(const FormValue& value, const TTypeInfo& type)
{
    if (type.Kind == tkEnumeration && type.Name != u"Boolean")
        return value.TheKind() == FormValue::Kind::Identifier && IsOneOf(type.EnumNames, value.ToString());
    if (type.Kind == tkEnumeration)
        return value.TheKind() == FormValue::Kind::Boolean;
    if (type.Kind != tkSet)
        return true;
    const auto names = value.ToStringList();
    return value.TheKind() == FormValue::Kind::Set
        && std::all_of(
            names.begin(), names.end(), [&type](const QString& name) { return IsOneOf(type.EnumNames, name); });
}

}

void FormAudit::Look(const FormDocument& form, const QString& rootClass)
{
    LookAt(form.Root(), rootClass);
}

void FormAudit::LookAt(const FormNode& node, const QString& className)
{
    const auto isInherited = node.TheKind() == FormNode::Kind::Inherited || node.TheKind() == FormNode::Kind::Inline;
    if (GetClassInGroup(className, FGroup)) {
        ++Known;
        for (const auto* property : node.Properties())
            LookAtProperty(*property, className);
    } else if (!isInherited && !FOwn.contains(className)) {
        Unknown << className;
    }
    for (const auto* child : node.Children())
        LookAt(*child, child->ClassName());
}

void FormAudit::LookAtProperty(const FormProperty& property, const QString& className)
{
    auto aClass = GetClassInGroup(className, FGroup);
    const auto path = property.Name();
    if (IsUnpublished(path))
        return;
    const TPropInfo* published = nullptr;
    for (const auto& part : path.split(u'.')) {
        published = GetPropInfo(aClass, part);
        if (!published) {
            Findings << className + u'.' + path;
            return;
        }
        if (!published->IsSubObject)
            break;
        aClass = GetClassInGroup(published->PropType.Name, FGroup);
        if (aClass && aClass.Info()->Properties.isEmpty())
            return; // lines, a picture, a collection: read by the object itself
    }
    if (!Fits(property.Value(), published->PropType))
        Findings << className + u'.' + path + QStringLiteral(" = ") + QString::fromUtf8(property.ValueBytes());
}
