#include "visual/TCommand.h"

TCommand::TCommand(QObject* owner)
    : QAction(owner)
{
    connect(this, &QAction::toggled, this, [this](bool on) {
        if (on != FChecked)
            setChecked(FChecked);
    });
}

void TCommand::SetCaption(const QString& caption)
{
    if (caption == FCaption)
        return;
    FCaption = caption;
    setSeparator(IsLine());
    // A separator with a text of its own is drawn as a heading by some styles.
    setText(IsLine() ? QString() : caption);
}

void TCommand::SetHint(const QString& hint)
{
    FHint = hint;
    setStatusTip(hint);
    setToolTip(hint);
}

void TCommand::SetShortCut(TShortCut shortCut)
{
    FShortCut = shortCut;
    setShortcut(ToKeySequence(shortCut));
}

void TCommand::SetChecked(bool checked)
{
    FChecked = checked;
    setCheckable(checked);
    setChecked(checked);
}

void TCommand::SetEnabled(bool enabled)
{
    if (enabled == FEnabled)
        return;
    FEnabled = enabled;
    setEnabled(enabled);
    // Qt keeps silent where the other of the two already hides or disables the command.
    Q_EMIT changed();
}

void TCommand::SetVisible(bool visible)
{
    if (visible == FVisible)
        return;
    FVisible = visible;
    setVisible(visible);
    // Qt keeps silent where the other of the two already hides or disables the command.
    Q_EMIT changed();
}

void TCommand::SetImageIndex(int index)
{
    if (index == FImageIndex)
        return;
    FImageIndex = index;
    Q_EMIT changed();
}

void TCommand::SetHelpContext(int context)
{
    if (context == FHelpContext)
        return;
    FHelpContext = context;
    Q_EMIT changed();
}
