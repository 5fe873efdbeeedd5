#include "workbench/designer/SurfaceFixture.h"

class FormPictureTest : public SurfaceFixture {
protected:
    // The places of what is to be seen, one line each.
    std::string Layout(const QString& components)
    {
        ScriptedProject project;
        project.Form(
            QStringLiteral("LayoutForm"), QStringLiteral("ClientWidth = 400\nClientHeight = 300\n") + components);
        Open(project);
        FormLayout layout(*Packages);
        layout.Make(FormOf(QStringLiteral("LayoutForm")).TheDesigner().Root());
        QStringList lines;
        for (const auto& item : layout.Items()) {
            const auto& rect = item.Rect;
            lines << QStringLiteral("%1 %2,%3 %4x%5")
                         .arg(item.Component->Name())
                         .arg(rect.x())
                         .arg(rect.y())
                         .arg(rect.width())
                         .arg(rect.height());
        }
        return lines.join(u'\n').toStdString();
    }
};

TEST_F(FormPictureTest, AlignedControlsTakeTheirSides)
{
    EXPECT_EQ(Layout(QStringLiteral(R"(
        object Rest: TPanel
          Align = alClient
        end
        object Side: TPanel
          Width = 50
          Align = alLeft
        end
        object Head: TPanel
          Height = 40
          Align = alTop
        end
        object Foot: TStatusBar
          Top = 280
          Height = 19
          Align = alBottom
        end)")),
        "Rest 50,40 350x241\nSide 0,40 50x241\nHead 0,0 400x40\nFoot 0,281 400x19");
}

TEST_F(FormPictureTest, LabelsStandBelowControlsWithAWindow)
{
    EXPECT_EQ(Layout(QStringLiteral(R"(
        object Edit1: TEdit
          Left = 8
          Top = 30
          Width = 100
          Height = 21
        end
        object Label1: TLabel
          Left = 8
          Top = 8
          Width = 40
          Height = 13
        end)")),
        "Label1 8,8 40x13\nEdit1 8,30 100x21");
}

TEST_F(FormPictureTest, OnlyThePageInFrontIsThere)
{
    EXPECT_EQ(Layout(QStringLiteral(R"(
        object Pages: TPageControl
          Width = 208
          Height = 130
          ActivePage = Second
          object First: TTabSheet
            object Hidden: TEdit
              Width = 50
              Height = 20
            end
          end
          object Second: TTabSheet
            object Seen: TEdit
              Left = 8
              Top = 8
              Width = 50
              Height = 20
            end
          end
        end)")),
        "Pages 0,0 208x130\nSecond 4,26 200x100\nSeen 12,34 50x20");
}

TEST_F(FormPictureTest, ComponentsWithoutAFaceAreIconsAndPartsOfOthersAreNot)
{
    EXPECT_EQ(Layout(QStringLiteral(R"(
        object Menu: TMainMenu
          Left = 100
          Top = 40
          object Item: TMenuItem
          end
        end)")),
        "Menu 100,40 28x28");
}

TEST_F(FormPictureTest, APictureShowsTheFormWithoutItsSelection)
{
    Surface();
    auto& module = FormOf(QStringLiteral("MainForm"));
    const auto picture = RenderForm(module, *Packages);
    Click("Button1");
    EXPECT_EQ(RenderForm(module, *Packages), picture);
    Drag(CenterOf("Button1"), CenterOf("Button1") + QPoint(80, 0));
    EXPECT_NE(RenderForm(module, *Packages), picture);
}

TEST_F(FormPictureTest, APictureGrowsWithItsScale)
{
    Surface();
    auto& module = FormOf(QStringLiteral("MainForm"));
    EXPECT_EQ(RenderForm(module, *Packages, 2).size(), RenderForm(module, *Packages).size() * 2);
}
