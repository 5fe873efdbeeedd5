#include "data/TDataSet.h"
#include "support/HostFixture.h"

#include <QElapsedTimer>

namespace {

class LargeForms : public PackagedHostFixture {
protected:
    QString Datasets(int count, int fields)
    {
        QString text(QStringLiteral("object Connection: TZAConnection\nend\n"));
        for (int i = 0; i < count; ++i) {
            text += QStringLiteral("object Query%1: TZAQuery\nConnection = Connection\nLeft = 8\nTop = 8\n").arg(i);
            for (int f = 0; f < fields; ++f)
                text += QStringLiteral("object Query%1F%2: TIntegerField\nFieldName = 'F%2'\nend\n").arg(i).arg(f);
            text += QLatin1String("end\n");
        }
        return text;
    }
};

}

TEST_F(LargeForms, AThousandDatasetsOpenWithTheirFieldsAndCloseAgain)
{
    ScriptedProject shop;
    shop.DataModule(u"Data"_qs, Datasets(1000, 20));
    Open(shop);
    auto* root = Component(u"Data"_qs);
    ASSERT_EQ(root->ComponentCount(), 21001);
    EXPECT_EQ(dynamic_cast<TDataSet*>(Component(u"Data.Query999"_qs))->FieldCount(), 20);
    EXPECT_EQ(Problems(), "");
    TheHost->CloseAll();
    EXPECT_EQ(TheHost->Modules().size(), 0);
}
