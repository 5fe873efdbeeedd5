#include "designer/DataKinds.h"
#include "designer/Designer.h"
#include "rtl/SysUtils.h"

// The order of the fields of a dataset, in the components and in the file. A form that inherits has the ancestor's
// fields in the ancestor's order and its own behind them; one that stands elsewhere has its place in the file: [n].

namespace {

// In their order. The parent is a dataset, or a field that holds others.
QList<TComponent*> FieldsOf(const TComponent& parent)
{
    QList<TComponent*> found;
    for (auto* other : parent.Owner() ? parent.Owner()->Components() : QList<TComponent*>())
        if (other->GetParentComponent() == &parent && DataKinds::IsField(*other))
            found << other;
    std::stable_sort(found.begin(), found.end(), [](const TComponent* a, const TComponent* b) {
        return GetPropValue(a, QStringLiteral("Index")).toInt() < GetPropValue(b, QStringLiteral("Index")).toInt();
    });
    return found;
}

}

void Designer::WriteFieldOrder(TComponent& field)
{
    if (const auto* parent = field.GetParentComponent())
        FForm->OrderNode(field, FieldsOf(*parent), InheritedFields(*parent));
}

// Those that come from the ancestor, in its order.
QList<TComponent*> Designer::InheritedFields(const TComponent& parent) const
{
    const auto fields = FieldsOf(parent);
    QList<TComponent*> inherited;
    if (const auto* ancestor = dynamic_cast<TComponent*>(Inherited(parent)))
        for (const auto* field : FieldsOf(*ancestor))
            if (auto* own = parent.Owner()->FindComponent(field->Name()); fields.contains(own))
                inherited << own;
    for (auto* field : fields)
        if (field->HasState(csAncestor) && !inherited.contains(field))
            inherited << field;
    return inherited;
}

QList<TComponent*> Designer::FieldsAsInFile(const TComponent& parent) const
{
    auto order = InheritedFields(parent);
    const auto* node = FForm->NodeOf(&parent);
    for (const auto* child : node ? node->Children() : std::span<FormNode* const>()) {
        auto* field = FForm->ComponentOf(child);
        if (!field || !DataKinds::IsField(*field))
            continue;
        if (!order.contains(field))
            order << field;
        if (const auto place = child->Index())
            order.move(order.indexOf(field), std::clamp<qsizetype>(*place, 0, order.size() - 1));
    }
    return order;
}

// Gives the fields that changed their place.
QList<TComponent*> Designer::OrderAsInFile(TComponent& parent)
{
    const Quiet quiet(*this);
    QList<TComponent*> moved;
    const auto order = FieldsAsInFile(parent);
    for (int i = 0; i < order.size(); ++i) {
        if (GetPropValue(order[i], QStringLiteral("Index")).toInt() == i)
            continue;
        SetPropValue(order[i], QStringLiteral("Index"), i);
        moved << order[i];
    }
    return moved;
}

// The fields of every dataset that was touched stand in the order of the file.
void Designer::OrderFields(const QList<FormNode*>& nodes, QList<WeakRef<TComponent>>& changed)
{
    QSet<TComponent*> parents;
    for (const auto* node : nodes) {
        const auto* field = FForm->ComponentOf(node);
        if (auto* parent = field && DataKinds::IsField(*field) ? field->GetParentComponent() : nullptr)
            parents.insert(parent);
    }
    for (auto* parent : std::as_const(parents)) {
        const auto moved = OrderAsInFile(*parent);
        for (auto* field : moved)
            changed << WeakRef<TComponent>(field);
        if (!moved.isEmpty())
            PassOn(*moved.first(), QStringLiteral("Index"));
    }
}
