#pragma once

#include "classes/Controls.h"
#include "packages/PackageList.h"

#include <QHash>
#include <QPoint>
#include <QRect>

// A component as it stands on its form.
struct LaidOut {
    WeakRef<TComponent> Component;
    // In the client coordinates of the root, and the part of it that its parents leave to be seen.
    QRect Rect;
    QRect Visible;
    QString Draw;
    // A component without a face: an icon with its name.
    bool IsIcon = false;
};

// Where the components of a form stand: places, alignment, the pages in front. A value that is made anew after each
// change of the form, in the order of painting; it holds the components weakly.
class FormLayout {
public:
    explicit FormLayout(const PackageList& packages)
        : FPackages(packages)
    {
    }

    static constexpr int IconSize = 28;

    void Make(TComponent* root);
    void Clear();
    TComponent* Root() const { return FRoot.get(); }
    // Whether the root holds components without a place on the screen.
    bool IsContainer() const { return FIsContainer; }
    // Of the root's client area.
    QSize ClientSize() const { return FClientSize; }
    const QList<LaidOut>& Items() const { return FItems; }
    // Nil for what is not to be seen.
    const LaidOut* Find(const TPersistent* component) const;
    // The component in front at that point; the root where there is none, nil outside.
    TComponent* At(QPoint point) const;
    // The control in front there, icons left out; the root where there is none.
    TComponent* ControlAt(QPoint point) const;
    // Those whose rectangle meets the other, but not those that enclose it.
    QList<TComponent*> Within(const QRect& rect) const;
    // The page whose tab is at that point; nil.
    TComponent* TabAt(QPoint point) const;

    // Shows a page of a page control until another is; nothing in the form changes.
    void ShowPage(const TComponent& page);
    // Shows the pages that the component stands on. True when others were in front.
    bool Reveal(const TComponent& component);

    const ComponentInfo& Info(TClass aClass) const;
    // The place of a control in its parent's client coordinates, of an icon on its form.
    QRect PlaceOf(const TComponent& component) const;
    void SetPlaceOf(TComponent& component, const QRect& place) const;
    static bool IsPlacedIcon(const TComponent& component);
    // The pages of a page control, and the one in front.
    static QList<TControl*> PagesOf(const TComponent& pageControl);
    TControl* FrontPage(const TComponent& pageControl) const;
    static QRect PageArea(const QRect& tabs) { return tabs.adjusted(4, 26, -4, -4); }
    // The rectangles of the tabs, as far as they are drawn.
    static QList<QRect> TabRects(const QRect& tabs, const QStringList& captions);

private:
    void PlaceControls(const TWinControl& parent, const QRect& client, const QRect& alignArea, const QRect& visible);
    void Add(TControl& control, const QRect& rect, const QRect& visible);
    void AddIcons(const TComponent& root);
    bool IsShownAsIcon(const TComponent& component) const;

    const PackageList& FPackages;
    mutable QHash<TClass, ComponentInfo> FInfos;
    WeakRef<TComponent> FRoot;
    bool FIsContainer = false;
    QSize FClientSize;
    QList<LaidOut> FItems;
    QHash<const void*, qsizetype> FIndex;
    QHash<const void*, const void*> FPages;
};
