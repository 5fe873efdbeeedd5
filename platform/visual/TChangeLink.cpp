#include "visual/TChangeLink.h"

void TChangeLink::Register(TImageList* images)
{
    Unregister();
    FImages = images;
    if (images == nullptr)
        return;
    FChanged = QObject::connect(images, &TImageList::Changed, [this] { Changed(); });
    FDestroyed = QObject::connect(images, &QObject::destroyed, [this] { Changed(); });
}

void TChangeLink::Unregister()
{
    QObject::disconnect(FChanged);
    QObject::disconnect(FDestroyed);
    FImages = nullptr;
}

void TChangeLink::Changed() const
{
    if (OnChange)
        OnChange();
}
