#include "design/TDefineField.h"

#include "rtl/Dialogs.h"

namespace {

// Nobody can be asked: the answer is no.
class TNoDialog : public TDefineField {
public:
    void SetDSDesigner(TDSDesigner*) override { }
    void SetDesigner(const InterfacePtr<IDesigner>&) override { }
    void SetDataset(TDataSet*) override { }
    int Columns() const override { return FColumns; }
    void SetColumns(int columns) override { FColumns = columns; }
    void AddKind(const QString&) override { }
    int ShowModal() override { return mrCancel; }
    TField* Field() const override { return nullptr; }

private:
    int FColumns = 3;
};

TDefineFieldMaker& TheMaker()
{
    static TDefineFieldMaker maker;
    return maker;
}

}

void SetDefineFieldMaker(TDefineFieldMaker maker)
{
    TheMaker() = std::move(maker);
}

std::unique_ptr<TDefineField> MakeDefineField()
{
    return TheMaker() ? TheMaker()() : std::make_unique<TNoDialog>();
}
