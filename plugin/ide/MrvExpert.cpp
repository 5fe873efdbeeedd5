#include "ide/MrvExpert.h"

#include "rtl/Guard.h"
#include "rtl/TResourceStream.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolwindow/MrvToolWindowUnit.h"
#include "visual/TImageList.h"
#include "visual/TMainMenu.h"

TMrvExpert* DockFrmExpert = nullptr;

namespace {

void Log(const QString& text)
{
    TMrvUtils::AddLogMessage(text);
}

TMainMenu* IdeMainMenu()
{
    const auto services = InterfaceCast<INTAServices>(BorlandIDEServices);
    return services ? services->GetMainMenu() : nullptr;
}

TMenuItem* ToolsMenu(TMainMenu* menu)
{
    return menu ? menu->Items().FindByName(QStringLiteral("ToolsMenu")) : nullptr;
}

TBitmap PackageBitmap(const QString& name)
{
    TBitmap bitmap;
    bitmap.LoadFromResourceName(QStringLiteral(":/package/%1").arg(int(RT_BITMAP)), name);
    return bitmap;
}

void AddProductInfo()
{
    const auto aboutBox = InterfaceCast<IOTAAboutBoxServices>(BorlandIDEServices);
    if (!aboutBox)
        return;
    const auto image = PackageBitmap(QStringLiteral("#102")).ToImage();
    aboutBox->AddProductInfo(sCompanyName, sProductLegal, sProductTitle, sProductDesc, image, image, false, QString(),
        QString(), false, false);
}

}

TMrvExpert::~TMrvExpert()
{
    DockFrmExpert = nullptr;
    auto* tools = ToolsMenu(IdeMainMenu());
    if (!tools || !FMenuItem || FMenuItem->Parent() != tools)
        return;
    tools->Remove(FMenuItem);
    // Out of the menu nobody else knows the item.
    FMenuItem->deleteLater();
}

QString TMrvExpert::GetIDString()
{
    return QStringLiteral("Bravik.Morvane");
}

QString TMrvExpert::GetName()
{
    return QStringLiteral("Morvane");
}

QString TMrvExpert::GetMenuText() const
{
    return QStringLiteral("Morvane");
}

void TMrvExpert::Execute()
{
    MrvToolWindow::ShowForm();
}

void TMrvExpert::OnExecute(QObject*)
{
    Execute();
}

void TMrvExpert::AddToolsMenuItem()
{
    Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - Try get IDE TMain menu object"));
    auto* menu = IdeMainMenu();
    if (!menu) {
        Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - IDE MainMenu not found!"));
        return;
    }
    Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - try find tools menu"));
    auto bitmap = PackageBitmap(QStringLiteral("#106"));
    bitmap.SetTransparent(true);
    Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - try add Mrv icon in IDE image list"));
    auto* images = menu->Images();
    const int imageIndex = images ? images->AddMasked(bitmap, bitmap.TransparentColor()) : -1;
    Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - Create custom menu item"));
    FMenuItem = new TMenuItem;
    FMenuItem->SetCaption(GetMenuText());
    FMenuItem->SetName(QStringLiteral("BravikMorvane"));
    FMenuItem->OnClick = [](QObject* sender) {
        AtEventBorder([sender] {
            if (DockFrmExpert)
                DockFrmExpert->OnExecute(sender);
        });
    };
    FMenuItem->SetImageIndex(imageIndex);
    Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - try insert custom menu item in IDE main menu"));
    if (auto* tools = ToolsMenu(menu)) {
        tools->Insert(0, FMenuItem);
        Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - success"));
    } else {
        delete FMenuItem;
        Log(QStringLiteral("TMrvExpert.AddToolsMenuItem - Tools menu not found!"));
    }
}

void MrvExpert::Register()
{
    try {
        Log(QStringLiteral("procedure Register - Enter"));
        Log(QStringLiteral("procedure Register - Try add product info"));
        AddProductInfo();
        ShowOnStart = false;
        Log(QStringLiteral("procedure Register - Try create TMrvExpert"));
        const auto expert = New<TMrvExpert>();
        DockFrmExpert = expert.get();
        Log(QStringLiteral("procedure Register - Try call RegisterPackageWizard"));
        RegisterPackageWizard(InterfacePtr<IOTAWizard>(expert));
        Log(QStringLiteral("procedure Register - Try DockFrmExpert.AddToolsMeniItem"));
        expert->AddToolsMenuItem();
        Log(QStringLiteral("procedure Register - success"));
    } catch (...) {
        Log(QStringLiteral("procedure Register - Failed"));
    }
}

void MrvExpert::Initialization()
{
    try {
        Log(QStringLiteral("MrvExpert.Initialization - Try create TMrvToolWindow"));
        MrvToolWindow::CreateForm();
        Log(QStringLiteral("MrvExpert.Initialization - success"));
    } catch (...) {
        Log(QStringLiteral("MrvExpert.Initialization - failed"));
    }
}

void MrvExpert::Finalization()
{
    try {
        Log(QString());
        Log(QStringLiteral("***** Morvane prepare to destroy *****"));
        Log(QStringLiteral("MrvExpert.finalization: Try remove tool window..."));
        MrvToolWindow::RemoveForm();
        Log(QStringLiteral("MrvExpert.finalization: success"));
    } catch (...) {
        Log(QStringLiteral("MrvExpert.finalization: failed"));
    }
}
