#include "services/Facades.h"

#include <vector>

void KeepUntilExit(std::shared_ptr<void> facade)
{
    static auto* const kept = new std::vector<std::shared_ptr<void>>;
    kept->push_back(std::move(facade));
}
