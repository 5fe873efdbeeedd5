#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"

#include <QList>

// A set of wrappers on its way from the tool window to the designer. It keeps each of them alive until it is cleared.
class TMrvSelectionList : public Implements<TInterfacedObject, IMrvSelectionList> {
public:
    void GetItem(int index, InterfacePtr<IMrvCustomComponentAttr>& item) override;
    void Add(const InterfacePtr<IMrvCustomComponentAttr>& item) override;
    int Count() override { return int(FList.size()); }
    void Clear() override { FList.clear(); }

    QList<InterfacePtr<IMrvCustomComponentAttr>> FList;
};
