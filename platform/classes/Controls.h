#pragma once

#include "classes/TComponent.h"

#include <QRect>

class TWinControl;

// A component with a place on the screen: position and size in the client coordinates of its parent, in designer
// pixels. It draws nothing itself; the designer's surface paints it from its properties.
class TControl : public TComponent {
    MRV_CLASS
    explicit TControl(TComponent* owner = nullptr);
    ~TControl() override;

    int Left() const { return FBounds.x(); }
    int Top() const { return FBounds.y(); }
    int Width() const { return FBounds.width(); }
    int Height() const { return FBounds.height(); }
    void SetLeft(int value);
    void SetTop(int value);
    void SetWidth(int value);
    void SetHeight(int value);
    QRect Bounds() const { return FBounds; }
    void SetBounds(const QRect& bounds);

    // The text that the control shows: published as Caption or Text by the classes that have one.
    QString Caption() const { return FCaption; }
    virtual void SetCaption(const QString& caption);
    bool Visible() const { return FVisible; }
    void SetVisible(bool visible);

    TWinControl* Parent() const { return FParent; }
    void SetParent(TWinControl* parent);
    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* parent) override;

protected:
    QRect FBounds;

private:
    friend class TWinControl;
    QString FCaption;
    bool FVisible = true;
    TWinControl* FParent = nullptr;
};

// A control without a window of its own; it has no children.
class TGraphicControl : public TControl {
    MRV_CLASS
    using TControl::TControl;
};

// A control that holds others. It does not own them: their owner is the form.
class TWinControl : public TControl {
    MRV_CLASS
    explicit TWinControl(TComponent* owner = nullptr);
    ~TWinControl() override;
    const QList<TControl*>& Controls() const { return FControls; }

private:
    friend class TControl;
    QList<TControl*> FControls;
};

class TCustomControl : public TWinControl {
    MRV_CLASS
    using TWinControl::TWinControl;
};

// The base of the catalogues' TLabel: text on the form. It sizes itself to its caption by nominal metrics of the form's
// font, the same on every machine, so that the form file is too: Height is the font's pixel height + 2, Width the
// caption's length by 0.55 of that height.
class TCustomLabel : public TGraphicControl {
    MRV_CLASS
    explicit TCustomLabel(TComponent* owner = nullptr);
    void SetCaption(const QString& caption) override;
    bool AutoSize() const { return FAutoSize; }
    void SetAutoSize(bool value);

private:
    void AdjustSize();
    bool FAutoSize = true;
};

// Lays a panel per record; a drop on it lands on its parent.
class TDBCtrlPanel : public TWinControl {
    MRV_CLASS
    using TWinControl::TWinControl;
};
