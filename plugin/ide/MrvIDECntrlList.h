#pragma once

#include "classes/TClass.h"
#include "model/MrvInterfaces.h"
#include "rtl/Modules.h"
#include "rtl/TInterfacedObject.h"
#include "toolsapi/OTAServices.h"
#include "visual/TBitmap.h"

// One component of an installed package that data can be bound to, with its palette picture.
class TIDEControlItem : public Implements<TInterfacedObject, IMrvIDEControlItem> {
public:
    TIDEControlItem(const QString& controlName, const QString& packageName);
    QImage GetImage() override { return FBitmap.Handle(); }
    void GetControlName(QString& name) override { name = FControlName; }
    void GetPackageName(QString& name) override { name = FPackageName; }
    // Takes the picture; one that is larger than 16 both ways is resampled to 16 by 16 around its colour key.
    void SetBitmap(const TBitmap& bitmap);

private:
    TBitmap FBitmap;
    TBitmap FMask;
    QString FControlName;
    QString FPackageName;
};

// The data-aware controls that the IDE has installed, found without loading any package: the IDE names the components
// of its packages, and the run-time information of the classes that are registered judges each. Built at each attach.
class TIDEControlList : public Implements<TInterfacedObject, IMrvIDEControlList> {
public:
    void Load() override;
    void Clear() override;
    QImage GetImageByClassName(const QString& className, TControlType type) override;
    void GetFieldCtrl(int index, InterfacePtr<IMrvIDEControlItem>& item) override;
    int GetFieldCtrlCount() override { return int(FFldList.size()); }
    void GetDataSetCtrl(int index, InterfacePtr<IMrvIDEControlItem>& item) override;
    int GetDataSetCtrlCount() override { return int(FDsList.size()); }
    WordBool IsLoaded() override { return FLoaded; }
    int ImageHeight() override { return 16; }
    int ImageWidth() override { return 16; }
    WordBool IsVisualControl(const QString& className) override;

    // What kind of data-bound control the class of that name is; ctOther for none.
    TControlType GetControlType(const QString& className) const;

private:
    using Items = QList<InterfacePtr<IMrvIDEControlItem>>;
    void InternalLoad();
    void LoadPackage(IOTAPackageServices& services, int package);
    void AddItem(const QString& className, const QString& packageName, TControlType type, const TBitmap& bitmap);
    Items* ListOf(TControlType type);
    void GetCtrlImageByClassName(const QString& className, TControlType type, TBitmap& bitmap);

    Items FDsList;
    Items FFldList;
    Items FComponentList;
    bool FLoaded = false;
};
