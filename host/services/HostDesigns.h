#pragma once

#include "design/DesignIntf.h"

class Host;

// The host's answers to the designers' questions.
class HostDesigns : public IDesignHost {
public:
    explicit HostDesigns(Host& host)
        : FHost(host)
    {
    }
    InterfacePtr<IComponentEditor> GetComponentEditor(
        TComponent* component, const InterfacePtr<IDesigner>& designer) override;
    InterfacePtr<IRoot> ActiveRoot() override;
    InterfacePtr<IDesigner> DesignerOfRoot(TComponent* root) override;

private:
    Host& FHost;
};
