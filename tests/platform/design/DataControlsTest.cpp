#include "design/DataControls.h"

#include "classes/TClassBuilder.h"
#include "data/DataClasses.h"
#include "data/NumericFields.h"
#include "data/TDataSetDesigner.h"
#include "data/TextFields.h"

#include <gtest/gtest.h>

namespace {

class TRegisteredControl : public TControl {
    MRV_CLASS
    using TControl::TControl;
};

class TOwnControl : public TControl {
    MRV_CLASS
    using TControl::TControl;
};

TClass TRegisteredControl::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TRegisteredControl>(info, QStringLiteral("TRegisteredControl"), TControl::Class()).Made();
    return made;
}

TClass TOwnControl::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TOwnControl>(info, QStringLiteral("TOwnControl"), TControl::Class()).Made();
    return made;
}

// Asks for a control of its own for each field.
class ChoosyDesigner : public TDSDesigner {
public:
    using TDSDesigner::TDSDesigner;
    QString GetControlClass(TField* field) const override
    {
        return field->FieldName() == QStringLiteral("Id") ? QStringLiteral("TOwnControl") : QString();
    }
};

class ControlClasses : public testing::Test {
protected:
    ControlClasses()
    {
        RegisterDataClasses();
        RegisterClass(TRegisteredControl::Class());
        RegisterClass(TOwnControl::Class());
        RegisterFieldControl(TNumericField::Class(), QStringLiteral("TRegisteredControl"));
        Id.SetFieldName(QStringLiteral("Id"));
        Id.SetDataSet(&DataSet);
        DataSet.FieldDefs().AddFieldDef(QStringLiteral("Count"), ftInteger);
    }
    ~ControlClasses() override
    {
        UnRegisterClass(TRegisteredControl::Class());
        UnRegisterClass(TOwnControl::Class());
    }
    TDataSet DataSet;
    TIntegerField Id;
};

}

TEST_F(ControlClasses, AreTheOnesNamed)
{
    EXPECT_EQ(CreateControlClass(&DataSet, QStringLiteral("Id"), QStringLiteral("TOwnControl")), TOwnControl::Class());
}

TEST_F(ControlClasses, AreRegisteredForTheClassOfAFieldOrADefinitionOrAnAncestorOfIt)
{
    EXPECT_EQ(CreateControlClass(&DataSet, QStringLiteral("Id"), QString()), TRegisteredControl::Class());
    EXPECT_EQ(CreateControlClass(&DataSet, QStringLiteral("Count"), QString()), TRegisteredControl::Class());
    EXPECT_FALSE(DataSet.Active());
}

TEST_F(ControlClasses, AreTheDesignersOwnWhereItHasOne)
{
    const ChoosyDesigner designer(&DataSet);
    EXPECT_EQ(CreateControlClass(&DataSet, QStringLiteral("Id"), QString()), TOwnControl::Class());
    EXPECT_EQ(CreateControlClass(&DataSet, QStringLiteral("Count"), QString()), TRegisteredControl::Class());
    EXPECT_EQ(CreateControlClass(&DataSet, QStringLiteral("Id"), QStringLiteral("TRegisteredControl")),
        TRegisteredControl::Class());
}

TEST_F(ControlClasses, ThatAreNotInstalledAreToldByName)
{
    try {
        CreateControlClass(&DataSet, QStringLiteral("Id"), QStringLiteral("TNowhere"));
        FAIL();
    } catch (const EClassNotFound& failure) {
        EXPECT_EQ(failure.Message(), QStringLiteral("Visual control TNowhere is not installed in IDE"));
    }
}
