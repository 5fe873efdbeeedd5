#include "workbench/app/WindowFixture.h"

#include <QDir>
#include <QProcess>

// A person's mouse: a field is dragged from the plug-in's tree onto a form, and saved. Runs on a display; xdotool moves
// the mouse. Pictures of the steps are kept beside the test program.
class DragJourney : public WindowFixture {
protected:
    void TakePicture(const char* name) const
    {
        QDir().mkpath(QStringLiteral(MORVANE_BIN_DIR "/journey"));
        Window->grab().save(QStringLiteral(MORVANE_BIN_DIR "/journey/%1.png").arg(QString::fromLatin1(name)));
    }
    TCustomTreeView& Tree() { return *ToolWindow().findChild<TCustomTreeView*>(); }

    // The middle of a node's text, on the screen.
    QPoint PointOf(const TTreeNode& node) { return Tree().viewport()->mapToGlobal(node.DisplayRect(true).center()); }
    TTreeNode* NodeWith(const QString& text)
    {
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (node->Text().contains(text))
                return node;
        return nullptr;
    }
    static QStringList Steps(QPoint from, QPoint to)
    {
        QStringList steps { QStringLiteral("mousemove"), QString::number(from.x()), QString::number(from.y()),
            QStringLiteral("mousedown"), QStringLiteral("1") };
        constexpr int count = 8;
        for (int i = 1; i <= count; ++i) {
            const auto at = from + (to - from) * i / count;
            steps << QStringLiteral("sleep") << QStringLiteral("0.1") << QStringLiteral("mousemove")
                  << QString::number(at.x()) << QString::number(at.y());
        }
        return steps << QStringLiteral("sleep") << QStringLiteral("0.2") << QStringLiteral("mouseup")
                     << QStringLiteral("1");
    }
    // The real mouse, while the window lives on.
    static bool Mouse(const QStringList& steps)
    {
        QProcess mouse;
        mouse.start(QStringLiteral("xdotool"), steps);
        return QTest::qWaitFor([&mouse] { return mouse.state() == QProcess::NotRunning; }, 30000)
            && mouse.exitCode() == 0;
    }

    ScriptedProject Shop;
};

TEST_F(DragJourney, AFieldDraggedOntoAFormIsABoundControlInItsFiles)
{
    Shop.Form(QStringLiteral("MainForm"), QStringLiteral("ClientWidth = 400\nClientHeight = 300"))
        .DataModule(QStringLiteral("Data"), QStringLiteral(R"(
            object Books: TZAQuery
              object BooksTitle: TStringField
                FieldName = 'Title'
              end
            end)"))
        .Uses(QStringLiteral("MainForm"), QStringLiteral("DataUnit"));
    Start(Shop.Write());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Window.get()));
    Window->TheHost().SetFront(FormModule(QStringLiteral("MainForm")));
    QTest::qWait(300);
    Window->Refresh();
    auto* field = NodeWith(QStringLiteral("BooksTitle"));
    ASSERT_NE(field, nullptr);
    for (auto* above = field->Parent(); above; above = above->Parent())
        above->Expand(false);
    QTest::qWait(300);
    TakePicture("1-before");
    auto* surface = Window->ViewOf(FormModule(QStringLiteral("MainForm")))->Surface();
    ASSERT_TRUE(Mouse(Steps(PointOf(*field), surface->mapToGlobal(surface->FromClient({ 40, 60 })))));
    auto& designer = FormModule(QStringLiteral("MainForm")).TheDesigner();
    ASSERT_TRUE(QTest::qWaitFor([&] { return designer.GetComponent(QStringLiteral("DBEdit1")) != nullptr; }, 10000));
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::mouseButtons() == Qt::NoButton; }, 10000));
    QTest::qWait(300);
    TakePicture("2-dropped");
    EXPECT_EQ(Window->CurrentView(), Window->ViewOf(FormModule(QStringLiteral("MainForm"))));
    Window->Execute(Command::SaveAll);
    const auto form = ScriptedProject::Read(Shop.FormOf(QStringLiteral("MainForm")));
    EXPECT_TRUE(form.contains("object DBEdit1: TDBEdit")) << form.constData();
    EXPECT_TRUE(form.contains("DataField = 'Title'")) << form.constData();
    EXPECT_TRUE(form.contains("Caption = 'Title'")) << form.constData();
    const auto unit = ScriptedProject::Read(Shop.UnitOf(QStringLiteral("MainForm")));
    EXPECT_TRUE(unit.contains("DBEdit1: TDBEdit;")) << unit.constData();
    Window->Execute(Command::Undo);
    EXPECT_EQ(designer.GetComponent(QStringLiteral("DBEdit1")), nullptr);
    EXPECT_EQ(Exceptions, QStringList());
}
