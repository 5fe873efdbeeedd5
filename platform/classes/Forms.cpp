#include "classes/Forms.h"

#include "classes/TClassBuilder.h"

TClass TScrollingWinControl::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TScrollingWinControl>(info, QStringLiteral("TScrollingWinControl"), TWinControl::Class())
              .Unit(QStringLiteral("Vcl.Forms"))
              .Made();
    return made;
}

TClass TCustomForm::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCustomForm>(info, QStringLiteral("TCustomForm"), TScrollingWinControl::Class())
              .Unit(QStringLiteral("Vcl.Forms"))
              .Property(QStringLiteral("Caption"), &TCustomForm::Caption, &TCustomForm::SetCaption)
              .Property(QStringLiteral("ClientWidth"), &TCustomForm::ClientWidth, &TCustomForm::SetClientWidth)
              .Property(QStringLiteral("ClientHeight"), &TCustomForm::ClientHeight, &TCustomForm::SetClientHeight)
              .Made();
    return made;
}

TCustomForm::TCustomForm(TComponent* owner)
    : TScrollingWinControl(owner)
{
    FBounds = { 0, 0, 320, 240 };
}

int TCustomForm::FontPixelHeight() const
{
    const auto* font = SubObject(QStringLiteral("Font"));
    const int stored = font ? font->StoredValue(QStringLiteral("Height"), -11).toInt()
                            : StoredValue(QStringLiteral("Font.Height"), -11).toInt();
    return stored < 0 ? -stored : 11;
}

TClass TForm::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TForm>(info, QStringLiteral("TForm"), TCustomForm::Class())
                                   .Unit(QStringLiteral("Vcl.Forms"))
                                   .Made();
    return made;
}

TClass TFrame::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TFrame>(info, QStringLiteral("TFrame"), TScrollingWinControl::Class())
                                   .Unit(QStringLiteral("Vcl.Forms"))
                                   .Made();
    return made;
}

TClass TDataModule::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TDataModule>(info, QStringLiteral("TDataModule"), TComponent::Class())
                                   .Unit(QStringLiteral("System.Classes"))
                                   .Property(QStringLiteral("Width"), &TDataModule::Width, &TDataModule::SetWidth)
                                   .Property(QStringLiteral("Height"), &TDataModule::Height, &TDataModule::SetHeight)
                                   .Made();
    return made;
}

TDataModule::TDataModule(TComponent* owner)
    : TComponent(owner)
{
}

void TDataModule::SetWidth(int value)
{
    if (std::exchange(FWidth, value) != value)
        Changed(QStringLiteral("Width"));
}

void TDataModule::SetHeight(int value)
{
    if (std::exchange(FHeight, value) != value)
        Changed(QStringLiteral("Height"));
}
