#include "forms/FormJournal.h"

#include <algorithm>

FormJournal::Edit::Edit(FormJournal& journal)
    : FJournal(journal)
{
    if (FJournal.FDepth++ > 0)
        return;
    FJournal.FSteps.resize(FJournal.FPosition);
    FJournal.FSteps.emplace_back();
    ++FJournal.FPosition;
}

FormJournal::Edit::~Edit()
{
    if (--FJournal.FDepth > 0 || !FJournal.FSteps.back().empty())
        return;
    FJournal.FSteps.pop_back();
    --FJournal.FPosition;
}

void FormJournal::SetHeader(FormNode& node, FormNode::Kind kind, const FormNode::Header& header)
{
    Apply(Header { &node, kind, header });
}

void FormJournal::SetFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer)
{
    Apply(Frame { &node, middle, footer });
}

void FormJournal::SetProperties(FormNode& node, std::span<FormProperty* const> properties)
{
    Apply(Properties { &node, properties });
}

void FormJournal::SetChildren(FormNode& node, std::span<FormNode* const> children)
{
    Apply(Children { &node, children });
}

void FormJournal::SetPieces(FormProperty& property, const FormProperty::Pieces& pieces)
{
    Apply(Pieces { &property, pieces });
}

void FormJournal::Apply(Change change)
{
    Exchange(change);
    FSteps.back().push_back(change);
}

void FormJournal::UndoTo(int position)
{
    const auto target = static_cast<size_t>(std::max(position, 0));
    while (FPosition > target) {
        auto& step = FSteps[--FPosition];
        for (auto change = step.rbegin(); change != step.rend(); ++change)
            Exchange(*change);
    }
}

void FormJournal::RedoTo(int position)
{
    const auto target = std::min(static_cast<size_t>(std::max(position, 0)), FSteps.size());
    while (FPosition < target)
        for (auto& change : FSteps[FPosition++])
            Exchange(change);
}

void FormJournal::Exchange(Change& change)
{
    std::visit([this](auto& one) { Exchange(one); }, change);
}

void FormJournal::Exchange(Header& change)
{
    const Header now { change.Node, change.Node->TheKind(), change.Node->TheHeader() };
    FTree.SetKind(*change.Node, change.Kind);
    FTree.SetHeader(*change.Node, change.Header);
    change = now;
}

void FormJournal::Exchange(Frame& change)
{
    const Frame now { change.Node, change.Node->Middle(), change.Node->Footer() };
    FTree.SetFrame(*change.Node, change.Middle, change.Footer);
    change = now;
}

void FormJournal::Exchange(Properties& change)
{
    const Properties now { change.Node, change.Node->Properties() };
    FTree.SetProperties(*change.Node, change.Properties);
    change = now;
}

void FormJournal::Exchange(Children& change)
{
    const Children now { change.Node, change.Node->Children() };
    FTree.SetChildren(*change.Node, change.Children);
    change = now;
}

void FormJournal::Exchange(Pieces& change)
{
    const Pieces now { change.Property, change.Property->ThePieces() };
    FTree.SetPieces(*change.Property, change.Pieces);
    change = now;
}
