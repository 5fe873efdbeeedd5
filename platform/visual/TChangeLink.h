#pragma once

#include "visual/TImageList.h"

#include <QPointer>

#include <functional>

// What somebody holds who watches an image list: OnChange runs when its pictures change, and once when it goes, at
// which time Images() is nil already. The list is not owned.
class TChangeLink {
public:
    TChangeLink() = default;
    ~TChangeLink() { Unregister(); }
    TChangeLink(const TChangeLink&) = delete;
    TChangeLink& operator=(const TChangeLink&) = delete;

    std::function<void()> OnChange;

    TImageList* Images() const { return FImages; }
    // Lets go of the list watched before; nil watches none.
    void Register(TImageList* images);
    void Unregister();

private:
    void Changed() const;

    QPointer<TImageList> FImages;
    QMetaObject::Connection FChanged;
    QMetaObject::Connection FDestroyed;
};
