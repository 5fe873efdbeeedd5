#pragma once

// The owner-drawn menus. A program makes a TPopupMenuEx, sets its style and pictures, and opens it.

#include "menus/MenuItemPainters.h"
#include "menus/MenuTypes.h"
#include "menus/MrvDrawing.h"
#include "menus/TPopupList.h"
#include "menus/TPopupMenuEx.h"
#include "menus/TXPMenuItemPainter.h"

namespace MrvMenus {

// Frees the shared list of menus, and logs that it does.
void Finalization();

}
