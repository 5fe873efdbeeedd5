#include "ide/MrvIDECntrlList.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

class InstalledControls : public ToolWindowFixture {
protected:
    void SetUp() override { List->Load(); }
    InterfacePtr<TIDEControlList> List = New<TIDEControlList>();
    QStringList FieldControls()
    {
        QStringList names;
        for (int i = 0; i < List->GetFieldCtrlCount(); ++i) {
            InterfacePtr<IMrvIDEControlItem> item;
            List->GetFieldCtrl(i, item);
            QString name;
            item->GetControlName(name);
            names << name;
        }
        return names;
    }
    static QImage Own(const QString& name)
    {
        TBitmap bitmap;
        bitmap.LoadFromResourceName(u":/package/2"_qs, name);
        return bitmap.ToImage();
    }
};

TBitmap Filled(int width, int height)
{
    TBitmap bitmap;
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    bitmap.SetHandle(image);
    return bitmap;
}

}

TEST_F(InstalledControls, AreSortedByWhatTheyBind)
{
    EXPECT_EQ(List->GetControlType(u"TDBEdit"_qs), ctField);
    EXPECT_EQ(List->GetControlType(u"TDBGrid"_qs), ctDataSet);
    EXPECT_EQ(List->GetControlType(u"TZASQL"_qs), ctComponent);
    EXPECT_EQ(List->GetControlType(u"TZAScript"_qs), ctComponent);
    EXPECT_EQ(List->GetControlType(u"TButton"_qs), ctOther);
    EXPECT_EQ(List->GetControlType(u"TDataSource"_qs), ctOther);
    EXPECT_EQ(List->GetControlType(u"TNobodyKnows"_qs), ctOther);
    EXPECT_EQ(List->GetControlType(u"TCXGRID"_qs), ctDataSet);
}

TEST_F(InstalledControls, AreFoundInThePackages)
{
    EXPECT_TRUE(FieldControls().contains(u"TDBEdit"_qs));
    EXPECT_FALSE(FieldControls().contains(u"TDBGrid"_qs));
    EXPECT_FALSE(FieldControls().contains(u"TButton"_qs));
    EXPECT_GT(List->GetDataSetCtrlCount(), 1);
    EXPECT_EQ(List->ImageWidth(), 16);
    EXPECT_EQ(List->ImageHeight(), 16);
}

TEST_F(InstalledControls, StayLoadedWhenTheyAreCleared)
{
    EXPECT_FALSE(New<TIDEControlList>()->IsLoaded());
    EXPECT_TRUE(List->IsLoaded());
    List->Clear();
    EXPECT_TRUE(List->IsLoaded());
    EXPECT_EQ(List->GetFieldCtrlCount(), 0);
    EXPECT_EQ(List->GetDataSetCtrlCount(), 0);
}

TEST_F(InstalledControls, TellVisualClassesFromTheOthers)
{
    EXPECT_TRUE(List->IsVisualControl(u"TDBEdit"_qs));
    EXPECT_FALSE(List->IsVisualControl(u"TZASQL"_qs));
    EXPECT_FALSE(List->IsVisualControl(u"TZAScript"_qs));
    EXPECT_FALSE(List->IsVisualControl(u"TNobodyKnows"_qs));
}

TEST_F(InstalledControls, HaveAPictureEach)
{
    EXPECT_EQ(List->GetImageByClassName(u"NONE"_qs, ctOther), Own(u"#103"_qs));
    EXPECT_EQ(List->GetImageByClassName(u"Details"_qs, ctField), Own(u"#104"_qs));
    EXPECT_EQ(List->GetImageByClassName(u"Default"_qs, ctDataSet), Own(u"#105"_qs));
    EXPECT_FALSE(List->GetImageByClassName(u"tdbedit"_qs, ctField).isNull());
    EXPECT_TRUE(List->GetImageByClassName(u"TDBEdit"_qs, ctDataSet).isNull());
    EXPECT_TRUE(List->GetImageByClassName(u"TDBEdit"_qs, ctOther).isNull());
    EXPECT_TRUE(List->GetImageByClassName(u"TNobodyKnows"_qs, ctField).isNull());
    // The picture is a copy: the item keeps its own.
    EXPECT_FALSE(List->GetImageByClassName(u"TDBEdit"_qs, ctField).isNull());
}

TEST_F(InstalledControls, AreScaledWhereThePictureIsLargerBothWays)
{
    const auto item = New<TIDEControlItem>(u"TA"_qs, u"package"_qs);
    item->SetBitmap(Filled(24, 24));
    EXPECT_EQ(item->GetImage().size(), QSize(16, 16));
    item->SetBitmap(Filled(24, 16));
    EXPECT_EQ(item->GetImage().size(), QSize(24, 16));
    QString name;
    item->GetPackageName(name);
    EXPECT_EQ(name, u"package"_qs);
}
