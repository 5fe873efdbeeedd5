#include "visual/TMenu.h"

#include "visual/TImageList.h"

TMenu::TMenu()
    : FItems(std::make_unique<TMenuItem>())
{
    FItems->FMenu = this;
}

TMenu::~TMenu() = default;

TImageList* TMenu::Images() const
{
    return FImages;
}

void TMenu::SetImages(TImageList* images)
{
    if (images == FImages)
        return;
    if (FImages)
        QObject::disconnect(FImages, nullptr, FItems.get(), nullptr);
    FImages = images;
    if (images != nullptr) {
        QObject::connect(images, &TImageList::Changed, FItems.get(), [this] { ImagesChanged(); });
        QObject::connect(images, &QObject::destroyed, FItems.get(), [this] { ImagesChanged(); });
    }
    ImagesChanged();
}

void TMenu::ImagesChanged()
{
    FItems->UpdateIcons();
}

void TMenu::FreeItems()
{
    FItems->Clear();
}
