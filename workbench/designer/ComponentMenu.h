#pragma once

#include "design/IComponentEditor.h"
#include "visual/TMenuItem.h"

// The part of a component's menu that its editor gives.
namespace ComponentMenu {

// Appends an item for each verb of the component's editor, completed by the editor. An item with sub-items opens them;
// another one runs its verb.
void Fill(TMenuItem& menu, TComponent& component, const InterfacePtr<IDesigner>& designer);
// The item as component editors see it. The item is not owned; one that is gone answers nothing.
InterfacePtr<IMenuItem> AsMenuItem(TMenuItem* item);

}
