#pragma once

#include "design/IDesigner.h"

// While it lives, controls are made through this designer where its form bears the names asked for: two projects with a
// MainForm do not meet. Drop targets hold one round a drop.
class TDropDesigner {
public:
    explicit TDropDesigner(const InterfacePtr<IDesigner>& designer);
    TDropDesigner(const TDropDesigner&) = delete;
    TDropDesigner& operator=(const TDropDesigner&) = delete;
    ~TDropDesigner();

    // The innermost one's; nil outside of a drop.
    static InterfacePtr<IDesigner> Current();

private:
    InterfacePtr<IDesigner> FOuter;
};
