#include "support/HostFixture.h"

#include <QFileInfo>

namespace {

class Examples : public PackagedHostFixture {
protected:
    QString Example(const char* name)
    {
        return QStringLiteral(MORVANE_SOURCE_DIR "/examples/") + QString::fromLatin1(name);
    }

    // Every form of the project with its class and how many components it owns.
    std::string Forms()
    {
        std::string text;
        const auto project = GetActiveProject();
        for (int i = 0; i < project->GetModuleCount(); ++i) {
            const auto info = project->GetModule(i);
            if (!info->GetFormName().isEmpty())
                info->OpenModule();
        }
        for (auto* module : TheHost->Modules())
            if (module->HasDesigner())
                text += module->FormName().toStdString() + ' '
                    + (module->TheDesigner().Root()->ComponentCount() > 0 ? "live\n" : "empty\n");
        return text;
    }
};

}

TEST_F(Examples, OpenWithoutAComplaintAndStayAsTheyAre)
{
    for (const auto* file : { "bookshop/bookshop.dproj", "bookshop-cpp/shopcpp.cbproj", "bookshop-lazarus/shop.lpi" }) {
        if (!QFileInfo::exists(Example(file)))
            GTEST_SKIP() << file << " is not there";
        ASSERT_TRUE(TheHost->Open(Example(file))) << file;
        const auto forms = Forms();
        EXPECT_EQ(forms.find("empty"), std::string::npos) << file << '\n' << forms;
        EXPECT_NE(forms, "") << file;
        EXPECT_EQ(Problems(), "") << file;
        EXPECT_FALSE(TheHost->IsModified()) << file;
    }
}
