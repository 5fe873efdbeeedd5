#pragma once

#include "classes/Controls.h"

class QObject;

class TScrollingWinControl : public TWinControl {
    MRV_CLASS
    using TWinControl::TWinControl;
};

class TCustomForm : public TScrollingWinControl {
    MRV_CLASS
    explicit TCustomForm(TComponent* owner = nullptr);
    int ClientWidth() const { return FBounds.width(); }
    int ClientHeight() const { return FBounds.height(); }
    void SetClientWidth(int value) { SetWidth(value); }
    void SetClientHeight(int value) { SetHeight(value); }
    // The pixel height of the form's font: 11 unless the file says otherwise.
    int FontPixelHeight() const;
};

// A form: the root of a designed form, or, for a window of a plug-in, the component side of that window.
class TForm : public TCustomForm {
    MRV_CLASS
    using TCustomForm::TCustomForm;
    // The object that receives messages posted to this form; nil for a form that is only designed.
    virtual QObject* Handle() { return nullptr; }
    // Whether the window is on the screen; false for a form that is only designed.
    virtual bool IsWindowVisible() const { return false; }
};

// A group of controls that is designed by itself and stands on forms.
class TFrame : public TScrollingWinControl {
    MRV_CLASS
    using TScrollingWinControl::TScrollingWinControl;
};

// The root that holds components without a place on the screen.
class TDataModule : public TComponent {
    MRV_CLASS
    explicit TDataModule(TComponent* owner = nullptr);
    int Width() const { return FWidth; }
    int Height() const { return FHeight; }
    void SetWidth(int value);
    void SetHeight(int value);

private:
    int FWidth = 215;
    int FHeight = 150;
};
