#pragma once

#include "config/MrvCfgIntf.h"
#include "ide/MrvServicesProxy.h"
#include "model/MrvClasses.h"
#include "support/HostFixture.h"
#include "support/LogText.h"
#include "toolwindow/MrvToolWindow.h"

// The whole plug-in, linked into the test, over a host without a window of its own; the tool window is real and drawn
// offscreen. The configuration is one of the test's own, in its folder: TDBGrid and TDBCtrlGrid for datasets, TDBEdit
// and TDBMemo for strings, TDBEdit for integers.
class ToolWindowFixture : public HostFixture {
protected:
    ToolWindowFixture();
    ~ToolWindowFixture() override;

    // Initialises the units and registers, as the host does when it loads the package.
    void StartPlugin();
    void StopPlugin();
    // Starts the plug-in with its window shown.
    void StartShown();
    // A data module with two connections, datasets of both and one without, fields, a master and its detail; an empty
    // main form. See the tree in TreeTextTest.
    void OpenShop();

    static TMrvToolWindow& Window() { return *static_cast<TMrvToolWindow*>(FormInstance); }
    static TMrvTreeView& Tree() { return *Window().FDataSetView; }
    static TDataSetList& List();
    static InterfacePtr<IMrvPreferences> Preferences();
    static void SetPreference(const QString& name, const QString& value);
    static QString Preference(const QString& name);
    static void Group(TGroupMode mode);

    // A node a line, two blanks of indent a level.
    static std::string Text();
    // The same with ">" behind an expanded node and "*" behind a selected one.
    static std::string MarkedText();
    // The tree as it is drawn from nothing, as text; the window keeps its own.
    static std::string FreshText();
    // "Data.Books/Fields/0 - Id..." below the root node; "" is the root. Nil where there is none.
    static TTreeNode* Node(const QString& path);
    static QList<TTreeNode*> NodesOf(IMrvCustomComponentAttr* attr)
    {
        return Tree().FindNodesByDataRef(InterfacePtr<IMrvCustomComponentAttr>(attr));
    }
    static void Select(const QString& path) { Tree().Select(Node(path)); }
    static QString StatusText();

    // Lets everything that waits for a quiet moment, or was posted, happen.
    void Settle();
    TDataSet& DataSet(const QString& formDotName);
    // A new persistent field of the dataset, made as the fields editor does.
    void AddField(const QString& formDotName, const QString& fieldName);
    void Delete(const QStringList& formDotNames);
    void Rename(const QString& formDotName, const QString& newName);

    // The log, switched on by this, from its first line to its last; taking empties it.
    void StartLog();
    std::string TakeLog();
    QString LogFile() const { return Folder.filePath(QStringLiteral("Morvane_ErrorEvents.log")); }

    ScriptedProject Shop;

private:
    bool FRuns = false;
};
