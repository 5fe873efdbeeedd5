#include "designer/FormClasses.h"

#include "classes/Controls.h"
#include "classes/TypInfo.h"

namespace FormClasses {

namespace {

struct Key {
    QString Name;
    QString Group;
    const TClassInfo* Parent;
    friend bool operator==(const Key&, const Key&) = default;
};

size_t qHash(const Key& key, size_t seed = 0)
{
    return qHashMulti(seed, key.Name, key.Group, quintptr(key.Parent));
}

QHash<Key, TClass>& Declarations()
{
    static QHash<Key, TClass> declarations;
    return declarations;
}

TClass BaseOf(Shape shape)
{
    if (shape == Shape::Container)
        return TWinControl::Class();
    return shape == Shape::Control ? TControl::Class() : TComponent::Class();
}

}

TClass Known(const QString& name, const QString& group)
{
    const auto found = GetClassInGroup(name, group);
    return found.InheritsFrom(TComponent::Class()) ? found : TClass();
}

TClass Declared(const QString& name, TClass parent, const QString& group)
{
    auto& declared = Declarations()[{ name, group, parent.Info() }];
    if (!declared) {
        auto info = std::make_unique<TClassInfo>();
        info->Name = name;
        info->Parent = parent;
        info->Group = group;
        declared = DefineClass(std::move(info));
    }
    return declared;
}

TClass Placeholder(const QString& name, const QString& group, Shape shape)
{
    return Declared(name, BaseOf(shape), group);
}

}
