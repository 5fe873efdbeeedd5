#pragma once

#include "cli/ProjectVerb.h"

// morvane tree PROJECT: the tree as the tool window holds it.
class TreeVerb : public ProjectVerb {
public:
    TreeVerb();

protected:
    ExitStatus Run() override;
};
