#include "visual/TAction.h"

TAction::TAction(QObject* owner)
    : TCommand(owner)
{
    connect(this, &QAction::triggered, this, [this] { Execute(); });
}

bool TAction::Execute(QObject* sender)
{
    Update();
    if (!Enabled() || !OnExecute)
        return false;
    OnExecute(sender != nullptr ? sender : this);
    return true;
}

void TAction::Update()
{
    if (OnUpdate)
        OnUpdate(this);
}
