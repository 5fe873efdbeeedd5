#pragma once

#include "cli/Verb.h"

// morvane forms PATH ...: reads every form file below, names what fails, and counts.
class FormsVerb : public Verb {
public:
    FormsVerb();

protected:
    ExitStatus Run() override;
};

// morvane convert IN OUT: text form file to binary and back.
class ConvertVerb : public Verb {
public:
    ConvertVerb();

protected:
    ExitStatus Run() override;
};
