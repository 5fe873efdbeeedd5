#pragma once

#include <memory>

// Facades outlive what they stand for: whoever got one may keep it until the process ends and is answered nil. They are
// kept here, reachable, and never freed.
void KeepUntilExit(std::shared_ptr<void> facade);

template <class T, class... Args>
T* MakeFacade(Args&&... args)
{
    auto made = std::make_shared<T>(std::forward<Args>(args)...);
    KeepUntilExit(made);
    return made.get();
}
