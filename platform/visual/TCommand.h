#pragma once

#include "visual/TShortCut.h"

#include <QAction>

#include <functional>

using TNotifyEvent = std::function<void(QObject* sender)>;

// What an action and a menu item have in common: a QAction with the properties of the window library. Whatever shows
// a QAction shows it. A click never ticks or unticks it: Checked changes only by SetChecked.
class TCommand : public QAction {
    Q_OBJECT
public:
    explicit TCommand(QObject* owner = nullptr);

    QString Name() const { return objectName(); }
    void SetName(const QString& name) { setObjectName(name); }

    // The text, with "&" before the hot key. "-" makes a separating line.
    QString Caption() const { return FCaption; }
    virtual void SetCaption(const QString& caption);
    bool IsLine() const { return FCaption == u"-"; }

    // Shown in the status line while the command is pointed at, and as a tool tip.
    QString Hint() const { return FHint; }
    void SetHint(const QString& hint);
    TShortCut ShortCut() const { return FShortCut; }
    void SetShortCut(TShortCut shortCut);

    bool Checked() const { return FChecked; }
    virtual void SetChecked(bool checked);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool enabled);
    bool Visible() const { return FVisible; }
    void SetVisible(bool visible);

    // Number of the picture in the image list of whatever shows the command; -1 is none.
    int ImageIndex() const { return FImageIndex; }
    virtual void SetImageIndex(int index);
    int GroupIndex() const { return FGroupIndex; }
    void SetGroupIndex(int index) { FGroupIndex = index; }
    int HelpContext() const { return FHelpContext; }
    void SetHelpContext(int context);
    std::intptr_t Tag() const { return FTag; }
    void SetTag(std::intptr_t tag) { FTag = tag; }

private:
    QString FCaption;
    QString FHint;
    TShortCut FShortCut = scNone;
    bool FChecked = false;
    bool FEnabled = true;
    bool FVisible = true;
    int FImageIndex = -1;
    int FGroupIndex = 0;
    int FHelpContext = 0;
    std::intptr_t FTag = 0;
};
