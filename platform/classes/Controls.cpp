#include "classes/Controls.h"

#include "classes/Forms.h"
#include "classes/TClassBuilder.h"

TClass TControl::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TControl>(info, QStringLiteral("TControl"), TComponent::Class())
                                   .Unit(QStringLiteral("Vcl.Controls"))
                                   .Group(QStringLiteral("VCL"))
                                   .Property(QStringLiteral("Left"), &TControl::Left, &TControl::SetLeft)
                                   .Property(QStringLiteral("Top"), &TControl::Top, &TControl::SetTop)
                                   .Property(QStringLiteral("Width"), &TControl::Width, &TControl::SetWidth)
                                   .Property(QStringLiteral("Height"), &TControl::Height, &TControl::SetHeight)
                                   .Property(QStringLiteral("Visible"), &TControl::Visible, &TControl::SetVisible, true)
                                   .Made();
    return made;
}

TControl::TControl(TComponent* owner)
    : TComponent(owner)
{
}

TControl::~TControl()
{
    if (FParent)
        FParent->FControls.removeOne(this);
}

void TControl::SetLeft(int value)
{
    SetBounds({ value, Top(), Width(), Height() });
}

void TControl::SetTop(int value)
{
    SetBounds({ Left(), value, Width(), Height() });
}

void TControl::SetWidth(int value)
{
    SetBounds({ Left(), Top(), value, Height() });
}

void TControl::SetHeight(int value)
{
    SetBounds({ Left(), Top(), Width(), value });
}

void TControl::SetBounds(const QRect& bounds)
{
    const auto old = std::exchange(FBounds, bounds);
    if (old.x() != bounds.x())
        Changed(QStringLiteral("Left"));
    if (old.y() != bounds.y())
        Changed(QStringLiteral("Top"));
    if (old.width() != bounds.width())
        Changed(QStringLiteral("Width"));
    if (old.height() != bounds.height())
        Changed(QStringLiteral("Height"));
}

void TControl::SetCaption(const QString& caption)
{
    if (caption == FCaption)
        return;
    FCaption = caption;
    Changed(GetPropInfo(this, QStringLiteral("Text")) ? QStringLiteral("Text") : QStringLiteral("Caption"));
}

void TControl::SetVisible(bool visible)
{
    if (visible == FVisible)
        return;
    FVisible = visible;
    Changed(QStringLiteral("Visible"));
}

void TControl::SetParent(TWinControl* parent)
{
    if (FParent)
        FParent->FControls.removeOne(this);
    FParent = parent;
    if (FParent)
        FParent->FControls << this;
}

TComponent* TControl::GetParentComponent() const
{
    return FParent;
}

void TControl::SetParentComponent(TComponent* parent)
{
    if (auto* control = dynamic_cast<TWinControl*>(parent))
        SetParent(control);
}

TClass TGraphicControl::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TGraphicControl>(info, QStringLiteral("TGraphicControl"), TControl::Class()).Made();
    return made;
}

TClass TWinControl::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TWinControl>(info, QStringLiteral("TWinControl"), TControl::Class()).Made();
    return made;
}

TWinControl::TWinControl(TComponent* owner)
    : TControl(owner)
{
}

TWinControl::~TWinControl()
{
    for (auto* control : std::as_const(FControls))
        control->FParent = nullptr;
}

TClass TCustomControl::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCustomControl>(info, QStringLiteral("TCustomControl"), TWinControl::Class()).Made();
    return made;
}

TClass TCustomLabel::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCustomLabel>(info, QStringLiteral("TCustomLabel"), TGraphicControl::Class())
              .Unit(QStringLiteral("Vcl.StdCtrls"))
              .Property(QStringLiteral("Caption"), &TCustomLabel::Caption, &TCustomLabel::SetCaption)
              .Property(QStringLiteral("AutoSize"), &TCustomLabel::AutoSize, &TCustomLabel::SetAutoSize, true)
              .Made();
    return made;
}

TCustomLabel::TCustomLabel(TComponent* owner)
    : TGraphicControl(owner)
{
    FBounds.setSize({ 10, 10 });
}

void TCustomLabel::SetCaption(const QString& caption)
{
    TGraphicControl::SetCaption(caption);
    AdjustSize();
}

void TCustomLabel::SetAutoSize(bool value)
{
    if (value == FAutoSize)
        return;
    FAutoSize = value;
    Changed(QStringLiteral("AutoSize"));
    AdjustSize();
}

void TCustomLabel::AdjustSize()
{
    if (!FAutoSize || HasState(csLoading))
        return;
    auto* form = dynamic_cast<TCustomForm*>(Owner());
    const int pixels = form ? form->FontPixelHeight() : 11;
    SetBounds({ Left(), Top(), int(Caption().size()) * pixels * 55 / 100, pixels + 2 });
}

TClass TDBCtrlPanel::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TDBCtrlPanel>(info, QStringLiteral("TDBCtrlPanel"), TWinControl::Class())
                                   .Unit(QStringLiteral("Vcl.DBCGrids"))
                                   .Made();
    return made;
}
