#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"

// A control class that can be bound: its caption, which is also its name in the file, and its class name.
class TBindableControlInfo : public Implements<TInterfacedObject, IMrvBindableControlInfo> {
public:
    TBindableControlInfo() = default;
    TBindableControlInfo(const QString& caption, const QString& className);

    void GetClassName(QString& className) override { className = FClassName; }
    void GetCaption(QString& caption) override { caption = FCaption; }
    void SetClassName(const QString& className) override { FClassName = className; }
    void SetCaption(const QString& caption) override { FCaption = caption; }
    void Assign(const InterfacePtr<IMrvBindableControlInfo>& source) override;

private:
    QString FCaption;
    QString FClassName;
};

// The interface's out arguments as values.
QString ClassNameOf(const InterfacePtr<IMrvBindableControlInfo>& item);
QString CaptionOf(const InterfacePtr<IMrvBindableControlInfo>& item);

// Whether this is the name of a pseudo-control, "None" or "Details", without regard to case.
bool IsPseudoControl(const QString& name);
