// Ends that the IDE makes hard: what it raises is logged and goes no further.

#include "ide/MrvExpert.h"
#include "ide/MrvSvcManager.h"
#include "package/MrvPackage.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// An IDE that takes listeners and raises when it is to let them go.
class ClingingServices : public Facade<IOTAServices> {
public:
    int AddNotifier(const InterfacePtr<IOTAIDENotifier>& notifier) override
    {
        Listeners << notifier;
        return int(Listeners.size()) - 1;
    }
    void RemoveNotifier(int index) override
    {
        Listeners[index].Clear();
        throw Exception(u"stays"_qs);
    }
    QList<InterfacePtr<IOTAIDENotifier>> Listeners;
};

class TearingDown : public ToolWindowFixture {
protected:
    ~TearingDown() override { BorlandIDEServices = FOwn; }
    void TakeTheIdeAway() { BorlandIDEServices = InterfacePtr<IInterface>(&Clinging); }
    ClingingServices Clinging;

private:
    InterfacePtr<IInterface> FOwn = BorlandIDEServices;
};

}

TEST_F(TearingDown, AListThatFailsToLeaveTheIdeLogsItAndGoesAllTheSame)
{
    StartLog();
    StartPlugin();
    TakeTheIdeAway();
    auto list = New<TDataSetList>();
    const auto listening = DesignNotifications().size();
    TakeLog();
    list.Clear();
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u"Notifier TIdeNotifier.EraseCallBack"_qs, u"Notifier TIdeNotifier.Destroy"_qs,
            u"TDataSetList.Destroy - failed"_qs, u"Exception.Message is 'stays'"_qs }));
    EXPECT_EQ(DesignNotifications().size(), listening - 1);
}

TEST_F(TearingDown, AListOfListenersLetsAllGoAlsoWhenTheFirstFails)
{
    StartPlugin();
    TakeTheIdeAway();
    TNotifierList list;
    New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), &list);
    New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), &list);
    EXPECT_THROW(list.Clear(), Exception);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(Clinging.Listeners, (QList<InterfacePtr<IOTAIDENotifier>> { nullptr, nullptr }));
}

TEST_F(TearingDown, AProxyThatFailsToLeaveTheIdeLogsItAndTheOtherUnitsEnd)
{
    StartLog();
    StartPlugin();
    TakeTheIdeAway();
    MrvApiProxy->FIDENotifier->Destroyed();
    MrvApiProxy->FIDENotifier = New<TIdeNotifier>(InterfaceCast<IOTAServices>(BorlandIDEServices), nullptr);
    TakeLog();
    StopPlugin();
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u""_qs, u"***** Morvane prepare to destroy *****"_qs,
            u"MrvExpert.finalization: Try remove tool window..."_qs, u"MrvExpert.finalization: success"_qs,
            u"MrvMenus.finalization: Try free popup list"_qs, u"MrvMenus.finalization: success"_qs,
            u"MrvServicesProxy.finalization: Try free MrvApiProxy object"_qs, u"Try destroy TMrvApiProxy object"_qs,
            u"Notifier TIdeNotifier.Destroy"_qs, u"MrvServicesProxy.finalization: failed"_qs }));
    EXPECT_EQ(MrvApiProxy, nullptr);
    EXPECT_FALSE(MrvConfigurationService);
}

TEST_F(TearingDown, ARegistrationThatFailsIsLoggedAndLeavesNoWizard)
{
    StartLog();
    MrvPackage::Initialize();
    TakeLog();
    SetWizardRegistrar({});
    MrvExpert::Register();
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u"procedure Register - Enter"_qs, u"procedure Register - Try add product info"_qs,
            u"procedure Register - Try create TMrvExpert"_qs, u"procedure Register - Try call RegisterPackageWizard"_qs,
            u"procedure Register - Failed"_qs }));
    EXPECT_EQ(DockFrmExpert, nullptr);
    MrvPackage::Finalize();
}
