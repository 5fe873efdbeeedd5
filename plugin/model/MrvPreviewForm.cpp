#include "model/MrvPreviewForm.h"

namespace {

TDataPreviewMaker& TheMaker()
{
    static TDataPreviewMaker maker;
    return maker;
}

}

void SetDataPreviewMaker(TDataPreviewMaker maker)
{
    TheMaker() = std::move(maker);
}

std::unique_ptr<TfmDataPreview> MakeDataPreview()
{
    return TheMaker() ? TheMaker()() : nullptr;
}

bool HasDataPreview()
{
    return bool(TheMaker());
}
