#include "designer/FormLinks.h"

#include "rtl/SysUtils.h"

namespace {

TComponent* Within(TComponent& owner, const QString& name)
{
    return SameText(owner.Name(), name) ? &owner : owner.FindComponent(name);
}

// The component below an owner that a path of names leads to.
TComponent* Below(TComponent& owner, const QString& path)
{
    const auto dot = path.indexOf(u'.');
    if (dot < 0)
        return owner.FindComponent(path);
    auto* inner = owner.FindComponent(path.left(dot));
    return inner ? Below(*inner, path.mid(dot + 1)) : nullptr;
}

TComponent* InForm(const FormLink& link, TComponent& root)
{
    auto* scope = link.Scope.get();
    if (scope)
        if (auto* found = Below(*scope, link.Target))
            return found;
    if (auto* found = Below(root, link.Target))
        return found;
    const auto dot = link.Target.indexOf(u'.');
    if (dot < 0)
        return Within(root, link.Target);
    return SameText(link.Target.left(dot), root.Name()) ? Below(root, link.Target.mid(dot + 1)) : nullptr;
}

TComponent* InOtherForm(const QString& target, const FormLinks::FindRoot& otherRoot)
{
    const auto dot = target.indexOf(u'.');
    auto* root = otherRoot(dot < 0 ? target : target.left(dot));
    return root && dot >= 0 ? Below(*root, target.mid(dot + 1)) : root;
}

void Set(TPersistent& instance, const QString& property, TComponent* target)
{
    if (!GetPropInfo(&instance, property)) {
        instance.SetStoredValue(property, QVariant::fromValue<TPersistent*>(target));
        return;
    }
    try {
        SetObjectProp(&instance, property, target);
    } catch (const Exception&) {
        // A component of another class than the property takes; the file keeps what it says.
    }
}

}

void FormLinks::Resolve(TComponent& root, const FindRoot& otherRoot)
{
    // What a form says over what its ancestor says stands behind it.
    QHash<std::pair<const void*, QString>, qsizetype> last;
    for (qsizetype i = 0; i < FLinks.size(); ++i)
        last.insert({ FLinks[i].Instance.Address(), FLinks[i].Property.toLower() }, i);
    QList<FormLink> external;
    for (qsizetype i = 0; i < FLinks.size(); ++i) {
        const auto& link = FLinks.at(i);
        auto* instance = link.Instance.get();
        if (!instance || link.Target.isEmpty() || last.value({ link.Instance.Address(), link.Property.toLower() }) != i)
            continue;
        if (auto* inner = InForm(link, root)) {
            Set(*instance, link.Property, inner);
            continue;
        }
        external << link;
        if (auto* outer = InOtherForm(link.Target, otherRoot))
            Set(*instance, link.Property, outer);
    }
    FLinks = external;
}

void FormLinks::Forget(const TPersistent* instance, const QString& property)
{
    FLinks.removeIf([instance, &property](const FormLink& link) {
        return link.Instance.Address() == instance && SameText(link.Property, property);
    });
}

QList<FormLink> FormLinks::Rename(const QString& oldTarget, const QString& newTarget)
{
    QList<FormLink> renamed;
    for (auto& link : FLinks) {
        const bool whole = SameText(link.Target, oldTarget);
        if (!whole && !link.Target.startsWith(oldTarget + u'.', Qt::CaseInsensitive))
            continue;
        link.Target = newTarget + link.Target.mid(oldTarget.size());
        renamed << link;
    }
    return renamed;
}

QString FormLinks::NameFrom(const TComponent& root, const TComponent& scope, const TComponent& target)
{
    const auto* owner = target.Owner();
    if (target.Name().isEmpty() || &target == &root || owner == &root || owner == &scope)
        return target.Name();
    return owner ? NameFrom(root, scope, *owner) + u'.' + target.Name() : target.Name();
}

namespace {

bool IsOnForm(const TComponent& root, const TComponent& component)
{
    const auto* walk = &component;
    while (walk && walk != &root)
        walk = walk->Owner();
    return walk;
}

TComponent* CounterpartOf(const TComponent& ancestorRoot, const TComponent& component, TComponent& root)
{
    if (&component == &ancestorRoot)
        return &root;
    auto* owner = CounterpartOf(ancestorRoot, *component.Owner(), root);
    return owner ? owner->FindComponent(component.Name()) : nullptr;
}

}

TComponent* FormLinks::InheritedTarget(const TComponent& ancestorRoot, TComponent& target, TComponent& root)
{
    return IsOnForm(ancestorRoot, target) ? CounterpartOf(ancestorRoot, target, root) : &target;
}
