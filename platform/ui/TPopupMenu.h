#pragma once

#include "ui/ItemMenu.h"
#include "visual/TMenu.h"

enum TPopupAlignment { paLeft, paRight, paCenter };
enum TTrackButton { tbRightButton, tbLeftButton };

// A menu that is opened at a point of the screen. Choosing an entry runs its Click.
class TPopupMenu : public ItemMenu, public TMenu {
    Q_OBJECT
public:
    explicit TPopupMenu(QWidget* owner = nullptr);
    ~TPopupMenu() override;

    QObject* AsObject() override { return this; }

    // Opens the menu at this point of the screen, after OnPopup has run, and returns while it is open. An empty menu
    // is not opened.
    virtual void Popup(int x, int y);
    // Where it was opened last; (-1, -1) before the first time.
    QPoint PopupPoint() const { return FPopupPoint; }
    void SetPopupPoint(QPoint point) { FPopupPoint = point; }

    // The component the menu was opened for; not owned.
    QObject* PopupComponent() const { return FPopupComponent; }
    void SetPopupComponent(QObject* component) { FPopupComponent = component; }

    TPopupAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TPopupAlignment alignment) { FAlignment = alignment; }
    // The buttons that choose an entry: with tbRightButton the left one as well, with tbLeftButton that one alone.
    TTrackButton TrackButton() const { return FTrackButton; }
    void SetTrackButton(TTrackButton button) { FTrackButton = button; }

    TNotifyEvent OnPopup;

protected:
    virtual void DoPopup();
    // Opens the Qt menu with its corner where the alignment puts it.
    void Track();
    // Makes the widget of a submenu.
    virtual QMenu* CreateSubMenu(QWidget* parent);

private:
    QPoint FPopupPoint { -1, -1 };
    QPointer<QObject> FPopupComponent;
    TPopupAlignment FAlignment = paLeft;
    TTrackButton FTrackButton = tbRightButton;
};
