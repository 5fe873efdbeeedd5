#pragma once

#include "classes/TypInfo.h"
#include "rtl/InterfacePtr.h"
#include "support/MrvNodeData.h"

#include <QString>

#include <exception>
#include <memory>

class IDesigner;
class IOTAComponent;
class TBitmap;
class TComponent;
class TCustomZAConnection;
class TIcon;
class TMenu;
class TMenuItem;

// Class operations that all subsystems share. The sources are split by topic: MrvUtilsLog, MrvUtilsHelp,
// MrvUtilsComponent, MrvUtilsSelect, MrvUtilsMenu, MrvUtilsIcon, MrvUtilsPackage; those on tree nodes stand in
// MrvTreeNodes.h.
class TMrvUtils {
public:
    // Appends a line to the log when the user has turned the log on: the preference "DebugMode" is "True" and the file
    // stands in the directory of "DebugPath" (empty: beside the host's executable). Never fails.
    static void AddLogMessage(const QString& message);
    // The two lines of a caught failure: the operation's own text, then "Exception.Message is '" + message + "'".
    static void LogFailure(const QString& text, const std::exception& exception);

    // Opens the help topic of the tool in the IDE's help. There is one topic, whatever the context.
    static void ShowHelp(int helpContext);
    // The first of Products whose help file is installed; empty when none is.
    static QString FindHelpProduct();

    // The connection of a TCustomZADataSet, TCustomZASQL or TZAScript; nil for anything else.
    static TCustomZAConnection* ExtractConnection(TComponent* component);
    // Its name; empty without one.
    static QString ExtractConnectionName(TComponent* component);
    // Raises EAssertionFailed for a component of another family.
    static void AssignConnections(TComponent* component, TCustomZAConnection* connection);
    // The unit's file of the form that the component stands on; empty where no designer shows it.
    static QString ExtractUnitName(TComponent* component);
    // The component behind it, or nil. The designer is not asked.
    static TComponent* ExtractComponent(
        const InterfacePtr<IOTAComponent>& component, const InterfacePtr<IDesigner>& designer);
    static QString GetOwnerName(const TComponent* component);
    // The first published property, in name order, of a registered class that inherits from this one; empty for none.
    static QString GetPropNameByClassType(const TPersistent* instance, TClass aClass);
    // Room for the class's published properties: one entry for each, nil; nil where it has none.
    using TPropList = std::unique_ptr<const TPropInfo*[]>;
    static TPropList AllocPropList(TClass aClass);
    static TPropList AllocPropList(const TPersistent* instance);
    // Whether the wrapper stands for a real dataset, not for an SQL or script component, and is not deleted.
    static bool IsDataSetDescendant(const InterfacePtr<IInterface>& attr);
    static bool IsProject(const QString& fileName);
    // The default for the empty text; raises EConvertError for a text that is no number.
    static int StrToInt(const QString& text, int defaultValue);

    // Selects the object in the designer, also one that the designer does not take for its own. Nil does nothing.
    static void SelectComponent(const InterfacePtr<IDesigner>& designer, TPersistent* instance, bool addToSelection);

    // Copies a tree of menu items: all of one menu into the other, or, where both items are given, those of one item.
    // The copies belong to the target, those of a deeper level to their parent.
    static void AssignMenuItems(TMenu* source, TMenu* target, TMenuItem* sourceItem, TMenuItem* targetItem);

    // An icon of the system's size, with the bitmap's transparent colour not seen, and black.
    static std::unique_ptr<TIcon> BitmapToIcon(const TBitmap& bitmap);
    // The icon of the product.
    static void SetIcon(TIcon& icon);

    // Makes sure that the package of a palette class is loaded; silent when nobody knows the class.
    static void EnsurePackageLoaded(const QString& className);
    // Whether the class can be offered: always, so far. A stricter test can take its place.
    static bool ClassIsPresent(const QString& className);

    // What a tree node carries. The node's tree frees it through these.
    static TNodeData* CreateNodeData(TNodeDataType nodeType, const InterfacePtr<IInterface>& dataRef);
    // Frees what the node carries; harmless for a node that carries nothing.
    template <class TTreeNode>
    static void FreeNodeData(TTreeNode* node);
    // Deletes the node with all below it, last first; the data goes after its node, so that the tree's delete event
    // still sees it.
    template <class TTreeNode>
    static void DeleteNode(TTreeNode* node);
};
