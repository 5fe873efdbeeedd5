#pragma once

#include "visual/TCommand.h"

// A command that several menu items and buttons share. Belongs to the form it stands in.
class TAction : public TCommand {
    Q_OBJECT
public:
    explicit TAction(QObject* owner = nullptr);

    // Runs OnExecute if the action is enabled; the sender is the action unless another one is given. False when there
    // was nothing to run.
    bool Execute(QObject* sender = nullptr);
    // Runs OnUpdate, in which the form sets Enabled, Checked and Visible anew.
    void Update();

    TNotifyEvent OnExecute;
    TNotifyEvent OnUpdate;
};
