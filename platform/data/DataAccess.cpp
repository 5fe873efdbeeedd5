#include "data/DataAccess.h"

namespace {

IDataAccess* theAccess = nullptr;
std::function<bool()> theCancelled;

}

void SetDataAccess(IDataAccess* access)
{
    theAccess = access;
}

IDataAccess* DataAccess()
{
    return theAccess;
}

void SetQueryCancelled(std::function<bool()> cancelled)
{
    theCancelled = std::move(cancelled);
}

const std::function<bool()>& QueryCancelled()
{
    return theCancelled;
}
