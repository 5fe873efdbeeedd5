#pragma once

#include "design/TDragObject.h"
#include "designer/FormSurface.h"
#include "packages/PackageList.h"
#include "support/HostFixture.h"

#include <QDir>
#include <QTest>

// A surface on a form with a button, a panel that holds an edit, and a data source without a face:
//
//     Button1  16,16 75x25        Panel1  16,64 200x100  with  Edit1  8,8 121x21 on it        DataSource1  240,16
class SurfaceFixture : public HostFixture {
protected:
    SurfaceFixture()
    {
        // What the catalogues tell is the same in every test.
        static PackageList packages;
        static const auto problems = packages.Load(QStringLiteral(MORVANE_SOURCE_DIR "/packages"));
        Packages = &packages;
        Shop.Form(QStringLiteral("MainForm"), QStringLiteral(R"(
            ClientHeight = 300
            ClientWidth = 400
            object Button1: TButton
              Left = 16
              Top = 16
              Width = 75
              Height = 25
              Caption = 'Go'
            end
            object Panel1: TPanel
              Left = 16
              Top = 64
              Width = 200
              Height = 100
              object Edit1: TEdit
                Left = 8
                Top = 8
                Width = 121
                Height = 21
              end
            end
            object DataSource1: TDataSource
              Left = 240
              Top = 16
            end)"));
    }

    FormSurface& Surface()
    {
        if (!FSurface) {
            Open(Shop);
            FSurface = std::make_unique<FormSurface>(*TheHost, *Packages, FormOf(QStringLiteral("MainForm")));
            FSurface->resize(FSurface->sizeHint());
            FSurface->show();
            Before = FormText(QStringLiteral("MainForm"));
        }
        return *FSurface;
    }
    TComponent& Part(const char* name) { return *Component(QStringLiteral("MainForm.") + QString::fromLatin1(name)); }
    QPoint CenterOf(const char* name) { return Surface().RectOf(Part(name)).center(); }
    QPoint At(int x, int y) { return Surface().FromClient({ x, y }); }

    void Click(const char* name, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(&Surface(), Qt::LeftButton, keys, CenterOf(name));
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(&Surface(), Qt::LeftButton, keys, from);
        QTest::mouseMove(&Surface(), (from + to) / 2);
        SendMove(to, keys);
        QTest::mouseRelease(&Surface(), Qt::LeftButton, keys, to);
    }
    // The names of what is selected, in order.
    std::string Selected()
    {
        QStringList names;
        for (auto* item : DesignerOf(QStringLiteral("MainForm")).Selection())
            names << dynamic_cast<TComponent*>(item)->Name();
        return names.join(QLatin1String(", ")).toStdString();
    }
    // What the gestures changed in the form file.
    std::string Changes() { return LineDifference(Before, FormText(QStringLiteral("MainForm"))); }
    std::string Undone()
    {
        TheHost->Undo().Undo();
        return Changes();
    }

    ScriptedProject Shop;
    PackageList* Packages;
    QByteArray Before;

private:
    // With the button held, which QTest's own moves leave out.
    void SendMove(QPoint to, Qt::KeyboardModifiers keys)
    {
        QMouseEvent move(QEvent::MouseMove, to, Surface().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(&Surface(), &move);
    }
    std::unique_ptr<FormSurface> FSurface;
};
