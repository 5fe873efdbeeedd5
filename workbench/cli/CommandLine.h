#pragma once

#include <QStringList>

#include <optional>

// The verbs of the command line.
namespace CommandLine {

// Runs the verb that the first argument (behind the program's name) names, and gives its exit status; nothing when it
// names none and the window is meant.
std::optional<int> Run(const QStringList& arguments);
// Whether the first argument names a verb; asked before there is an application.
bool IsVerb(const char* argument);

}
