#include "support/MrvUtils.h"
#include "visual/TAction.h"
#include "visual/TMenu.h"

namespace {

void Copy(const TMenuItem& source, TMenuItem& target, QObject* owner)
{
    for (int i = 0; i < source.Count(); ++i) {
        const auto& child = *source.Items(i);
        auto* item = new TMenuItem(owner);
        item->SetAction(child.Action());
        item->SetShortCut(child.ShortCut());
        item->SetCaption(child.Caption());
        item->SetName(child.Name());
        target.Add(item);
        // What stands deeper has no owner: it goes with the item it stands in.
        if (child.Count() > 0)
            Copy(child, *item, nullptr);
    }
}

}

void TMrvUtils::AssignMenuItems(TMenu* source, TMenu* target, TMenuItem* sourceItem, TMenuItem* targetItem)
{
    if (sourceItem && targetItem) {
        Copy(*sourceItem, *targetItem, target ? target->AsObject() : nullptr);
        return;
    }
    target->Items().Clear();
    Copy(source->Items(), target->Items(), target->AsObject());
}
