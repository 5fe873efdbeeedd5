#pragma once

#include <QString>

#include <functional>
#include <memory>

class TDataSet;

// The preview window of a dataset, as the model knows it: the dataset's wrapper owns it and makes it on demand. The
// window itself belongs to the tool window.
class TfmDataPreview {
public:
    virtual ~TfmDataPreview() = default;
    virtual void SetDataSet(TDataSet* dataSet) = 0;
    virtual void SetCaption(const QString& caption) = 0;
    virtual void Show() = 0;
};

// Set by whoever can show it, and put back to nothing when that goes; without a maker nothing is previewed.
using TDataPreviewMaker = std::function<std::unique_ptr<TfmDataPreview>()>;
void SetDataPreviewMaker(TDataPreviewMaker maker);
std::unique_ptr<TfmDataPreview> MakeDataPreview();
// Whether previews can be shown.
bool HasDataPreview();
