#pragma once

#include "app/Session.h"
#include "cli/Verb.h"
#include "rtl/TTimer.h"

class TCustomTreeView;
class TTreeNode;

// What the verbs that open a project share: the options that name it and its databases, and a session on a private copy
// of the configuration, with the plug-in's window shown (offscreen) before the project is announced.
class ProjectVerb : public Verb {
public:
    using Verb::Verb;

protected:
    void AddProjectOptions();
    void AddConnectionOptions();
    // The session with the plug-in loaded; nil, with the reason told, when it does not run.
    Session* Start(SessionOptions options = {});
    // Opens the project that the arguments name; false, with the reason told.
    bool OpenProject();
    // The window's tree; nil, with the reason told.
    TCustomTreeView* Tree();
    // Runs one of the window's actions by its name; false, with the reason told.
    bool Act(const QString& action);
    // Lets everything that waits happen: timers and posted messages.
    void Settle();
    // The dataset's node by "FORM.DATASET", without regard to case; the tree is not grouped. Nil.
    TTreeNode* FindDataSet(const QString& formDotName);
    // Retrieves the definitions of each: "all" or one dataset by "FORM.DATASET". The grouping stays as it was.
    bool DescribeEach(const QStringList& names);

    Session& TheSession() { return *FSession; }

private:
    bool ApplyDatabases();
    bool Describe(const QString& what);
    QString CheckedGroupAction();
    ManualClock FClock;
    std::unique_ptr<Session> FSession;
};
