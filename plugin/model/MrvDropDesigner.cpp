#include "model/MrvDropDesigner.h"

namespace {

InterfacePtr<IDesigner>& TheCurrent()
{
    static InterfacePtr<IDesigner> current;
    return current;
}

}

TDropDesigner::TDropDesigner(const InterfacePtr<IDesigner>& designer)
    : FOuter(std::exchange(TheCurrent(), designer))
{
}

TDropDesigner::~TDropDesigner()
{
    TheCurrent() = FOuter;
}

InterfacePtr<IDesigner> TDropDesigner::Current()
{
    return TheCurrent();
}
