#include "designer/FormLayout.h"

#include "classes/Forms.h"
#include "data/TField.h"
#include "designer/PropertyReading.h"

#include <algorithm>
#include <array>

using namespace PropertyReading;

const ComponentInfo& FormLayout::Info(TClass aClass) const
{
    auto found = FInfos.find(aClass);
    if (found == FInfos.end())
        found = FInfos.insert(aClass, FPackages.Info(aClass));
    return *found;
}

void FormLayout::Clear()
{
    FRoot = nullptr;
    FItems.clear();
    FIndex.clear();
    FClientSize = {};
}

void FormLayout::Make(TComponent* root)
{
    Clear();
    FRoot = root;
    if (!root)
        return;
    const auto* control = dynamic_cast<TWinControl*>(root);
    FIsContainer = !control;
    const auto* module = dynamic_cast<TDataModule*>(root);
    FClientSize = control ? PlaceOf(*control).size() : module ? QSize(module->Width(), module->Height()) : QSize();
    FClientSize = FClientSize.expandedTo({ 64, 32 });
    const QRect client({ 0, 0 }, FClientSize);
    if (control)
        PlaceControls(*control, client, client, client);
    AddIcons(*root);
    for (qsizetype i = 0; i < FItems.size(); ++i)
        FIndex.insert(FItems[i].Component.get(), i);
}

QRect FormLayout::PlaceOf(const TComponent& component) const
{
    const auto* control = dynamic_cast<const TControl*>(&component);
    if (!control)
        return { component.DesignLeft(), component.DesignTop(), IconSize, IconSize };
    const auto& places = Info(component.ClassType()).Geometry;
    auto place = control->Bounds();
    if (!places.Left.isEmpty())
        place.moveTo(NumberAt(component, places.Left), NumberAt(component, places.Top));
    if (!places.Width.isEmpty())
        place.setSize({ NumberAt(component, places.Width), NumberAt(component, places.Height) });
    return place;
}

void FormLayout::SetPlaceOf(TComponent& component, const QRect& place) const
{
    auto* control = dynamic_cast<TControl*>(&component);
    if (!control) {
        component.SetDesignPosition(place.x(), place.y());
        return;
    }
    const auto& places = Info(component.ClassType()).Geometry;
    if (places.Left.isEmpty()) {
        control->SetBounds(place);
        return;
    }
    SetNumberAt(component, places.Left, place.x());
    SetNumberAt(component, places.Top, place.y());
    SetNumberAt(component, places.Width, place.width());
    SetNumberAt(component, places.Height, place.height());
}

namespace {

// Each alignment with the side that its control takes; in the order in which they take it.
enum class Side { Top, Bottom, Left, Right, All, None };
constexpr std::array Sides { Side::Top, Side::Bottom, Side::Left, Side::Right, Side::All };

// "alTop" and "Top", "alClient" and "Client".
Side SideOf(const TControl& control)
{
    auto align = TextAt(control, QStringLiteral("Align"));
    if (align.startsWith(u"al"))
        align.remove(0, 2);
    if (align.startsWith(u"Most"))
        align.remove(0, 4);
    if (align == u"Top")
        return Side::Top;
    if (align == u"Bottom")
        return Side::Bottom;
    if (align == u"Left")
        return Side::Left;
    if (align == u"Right")
        return Side::Right;
    return align == u"Client" || align == u"Contents" ? Side::All : Side::None;
}

int SortKey(Side side, const QRect& rect)
{
    switch (side) {
    case Side::Top:
        return rect.y();
    case Side::Bottom:
        return -(rect.y() + rect.height());
    case Side::Left:
        return rect.x();
    case Side::Right:
        return -(rect.x() + rect.width());
    default:
        return 0;
    }
}

QRect Take(Side side, const QRect& rect, QRect& left)
{
    auto taken = left;
    switch (side) {
    case Side::Top:
        taken.setHeight(rect.height());
        left.setTop(taken.bottom() + 1);
        break;
    case Side::Bottom:
        taken.setTop(left.bottom() + 1 - rect.height());
        left.setBottom(taken.top() - 1);
        break;
    case Side::Left:
        taken.setWidth(rect.width());
        left.setLeft(taken.right() + 1);
        break;
    case Side::Right:
        taken.setLeft(left.right() + 1 - rect.width());
        left.setRight(taken.left() - 1);
        break;
    default:
        break;
    }
    return taken;
}

struct Placed {
    TControl* Control;
    QRect Rect;
    Side Where;
};

void AlignAll(QList<Placed>& controls, QRect area)
{
    for (const auto side : Sides) {
        QList<Placed*> here;
        for (auto& placed : controls)
            if (placed.Where == side)
                here << &placed;
        std::stable_sort(here.begin(), here.end(),
            [side](const Placed* a, const Placed* b) { return SortKey(side, a->Rect) < SortKey(side, b->Rect); });
        for (auto* placed : here)
            placed->Rect = Take(side, placed->Rect, area);
    }
}

}

void FormLayout::PlaceControls(
    const TWinControl& parent, const QRect& client, const QRect& alignArea, const QRect& visible)
{
    QList<Placed> controls;
    for (auto* control : parent.Controls())
        controls.append({ control, PlaceOf(*control).translated(client.topLeft()), SideOf(*control) });
    AlignAll(controls, alignArea);
    // Those without a window of their own are painted on their parent, below the others.
    std::stable_partition(controls.begin(), controls.end(),
        [](const Placed& placed) { return dynamic_cast<TGraphicControl*>(placed.Control) != nullptr; });
    for (const auto& placed : std::as_const(controls))
        Add(*placed.Control, placed.Rect, visible);
}

void FormLayout::Add(TControl& control, const QRect& rect, const QRect& visible)
{
    const auto& draw = Info(control.ClassType()).Draw;
    if (draw == u"none")
        return;
    const auto seen = rect & visible;
    FItems << LaidOut { &control, rect, seen, draw, false };
    auto* parent = dynamic_cast<TWinControl*>(&control);
    if (!parent)
        return;
    if (draw == u"tabs" && !PagesOf(control).isEmpty()) {
        const auto area = PageArea(rect);
        Add(*FrontPage(control), area, seen & area);
        return;
    }
    const auto alignArea = draw == u"group" ? rect.adjusted(2, 15, -2, -2) : rect;
    PlaceControls(*parent, rect, alignArea, seen);
}

// Parts of others (fields, menu items, actions) have no icon of their own.
bool FormLayout::IsShownAsIcon(const TComponent& component) const
{
    if (dynamic_cast<const TControl*>(&component) || dynamic_cast<const TField*>(&component))
        return false;
    const auto aClass = component.ClassType();
    if (aClass.InheritsFromNamed(u"TBasicAction") || aClass.InheritsFromNamed(u"TMenuItem"))
        return false;
    const auto* parent = component.GetParentComponent();
    const auto& draw = Info(aClass).Draw;
    return (!parent || parent == component.Owner()) && draw != u"none" && draw != u"menu";
}

void FormLayout::AddIcons(const TComponent& root)
{
    const QRect all(0, 0, 100000, 100000);
    for (auto* component : root.Components())
        if (IsShownAsIcon(*component)) {
            const auto rect = PlaceOf(*component);
            FItems << LaidOut { component, rect, rect & all, QStringLiteral("nonvisual"), true };
        }
}

bool FormLayout::IsPlacedIcon(const TComponent& component)
{
    return !dynamic_cast<const TControl*>(&component);
}

const LaidOut* FormLayout::Find(const TPersistent* component) const
{
    const auto* asComponent = dynamic_cast<const TComponent*>(component);
    const auto found = FIndex.constFind(asComponent);
    return asComponent && found != FIndex.constEnd() ? &FItems[*found] : nullptr;
}

TComponent* FormLayout::At(QPoint point) const
{
    for (auto item = FItems.crbegin(); item != FItems.crend(); ++item)
        if (item->Visible.contains(point) && item->Component)
            return item->Component.get();
    return QRect({ 0, 0 }, FClientSize).contains(point) ? Root() : nullptr;
}

TComponent* FormLayout::ControlAt(QPoint point) const
{
    for (auto item = FItems.crbegin(); item != FItems.crend(); ++item)
        if (!item->IsIcon && item->Visible.contains(point) && item->Component)
            return item->Component.get();
    return Root();
}

QList<TComponent*> FormLayout::Within(const QRect& rect) const
{
    QList<TComponent*> found;
    for (const auto& item : FItems)
        if (item.Component && item.Visible.intersects(rect) && !item.Rect.contains(rect) && item.Draw != u"tabsheet")
            found << item.Component.get();
    return found;
}

QList<TControl*> FormLayout::PagesOf(const TComponent& pageControl)
{
    const auto* parent = dynamic_cast<const TWinControl*>(&pageControl);
    QList<TControl*> pages;
    for (auto* control : parent ? parent->Controls() : QList<TControl*>())
        if (control->ClassType().InheritsFromNamed(u"TTabSheet") || control->ClassType().InheritsFromNamed(u"TTabItem"))
            pages << control;
    return pages;
}

TControl* FormLayout::FrontPage(const TComponent& pageControl) const
{
    const auto pages = PagesOf(pageControl);
    for (auto* page : pages)
        if (FPages.value(&pageControl) == page)
            return page;
    const auto* active = ObjectAt(pageControl, QStringLiteral("ActivePage"));
    for (auto* page : pages)
        if (page == active)
            return page;
    return pages.value(0);
}

QList<QRect> FormLayout::TabRects(const QRect& tabs, const QStringList& captions)
{
    QList<QRect> rects;
    int left = tabs.x() + 2;
    for (const auto& caption : captions) {
        const int width = 28 + 8 * int(caption.size());
        rects << QRect(left, tabs.y() + 2, width, 23);
        left += width;
    }
    return rects;
}

TComponent* FormLayout::TabAt(QPoint point) const
{
    for (auto item = FItems.crbegin(); item != FItems.crend(); ++item) {
        if (item->Draw != u"tabs" || !item->Visible.contains(point) || !item->Component)
            continue;
        const auto pages = PagesOf(*item->Component.get());
        QStringList captions;
        for (const auto* page : pages)
            captions << TextAt(*page, QStringLiteral("Caption"));
        const auto rects = TabRects(item->Rect, captions);
        for (qsizetype i = 0; i < rects.size(); ++i)
            if (rects[i].contains(point))
                return pages[i];
    }
    return nullptr;
}

void FormLayout::ShowPage(const TComponent& page)
{
    FPages.insert(page.GetParentComponent(), &page);
}

bool FormLayout::Reveal(const TComponent& component)
{
    bool changed = false;
    for (const auto* walk = &component; walk && walk != Root(); walk = walk->GetParentComponent()) {
        const auto* parent = walk->GetParentComponent();
        if (!parent || Info(parent->ClassType()).Draw != u"tabs" || FrontPage(*parent) == walk)
            continue;
        ShowPage(*walk);
        changed = true;
    }
    return changed;
}
