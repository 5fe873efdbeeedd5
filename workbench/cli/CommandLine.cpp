#include "cli/CommandLine.h"

#include "cli/DropVerb.h"
#include "cli/FormsVerb.h"
#include "cli/ShotVerb.h"
#include "cli/TreeVerb.h"

#include <array>

namespace {

template <class V>
int RunVerb(const QStringList& arguments)
{
    V verb;
    return verb.Execute(arguments);
}

struct VerbRow {
    const char* Name;
    int (*Run)(const QStringList& arguments);
};

constexpr std::array Verbs {
    VerbRow { "tree", RunVerb<TreeVerb> },
    VerbRow { "drop", RunVerb<DropVerb> },
    VerbRow { "shot", RunVerb<ShotVerb> },
    VerbRow { "forms", RunVerb<FormsVerb> },
    VerbRow { "convert", RunVerb<ConvertVerb> },
};

}

bool CommandLine::IsVerb(const char* argument)
{
    return std::any_of(
        Verbs.begin(), Verbs.end(), [argument](const auto& row) { return qstrcmp(row.Name, argument) == 0; });
}

std::optional<int> CommandLine::Run(const QStringList& arguments)
{
    for (const auto& row : Verbs)
        if (arguments.value(1) == QLatin1String(row.Name))
            return row.Run(QStringList(arguments[0] + u' ' + arguments[1]) + arguments.mid(2));
    return std::nullopt;
}
