#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"

// Holds what exists for one project: the data set list and the list of installed controls, with the configuration that
// both are given. Made at each attach; its last reference takes the model along.
class TMrvInteropServices : public Implements<TInterfacedObject, IMrvInteropServices> {
public:
    ~TMrvInteropServices() override;
    void GetDataSetList(InterfacePtr<IMrvDataSetList>& list) override { list = FDataSetList; }
    void GetIDECtrlList(InterfacePtr<IMrvIDEControlList>& list) override { list = FIDECtrlList; }
    void GetConfigurationService(InterfacePtr<IMrvConfigurationService>& service) override
    {
        service = FMrvConfigurationService;
    }
    void RegisterConfigurationService(const InterfacePtr<IMrvConfigurationService>& service) override
    {
        FMrvConfigurationService = service;
    }
    // Follows RegisterConfigurationService; without it the list receives nil.
    void CreateObjects() override;

private:
    InterfacePtr<IMrvDataSetList> FDataSetList;
    InterfacePtr<IMrvIDEControlList> FIDECtrlList;
    InterfacePtr<IMrvConfigurationService> FMrvConfigurationService;
};
