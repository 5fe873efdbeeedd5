#include "designer/Designer.h"
#include "rtl/Guard.h"

#include <memory>
#include <vector>

// Frames on a form after a change of their own form. They follow when the form comes to the front: the live components
// of the frame alone are made anew, from what the form's file says of it, and nothing of that is an edit.

namespace {

void CollectFrames(FormNode& node, QList<FormNode*>& found)
{
    for (auto* child : node.Children()) {
        if (child->TheKind() == FormNode::Kind::Inline)
            found << child;
        else
            CollectFrames(*child, found);
    }
}

}

QList<FormNode*> Designer::FrameNodes() const
{
    QList<FormNode*> found;
    CollectFrames(FForm->Document().Root(), found);
    return found;
}

Designer::FrameState Designer::StateOf(const QString& frameClass, QStringList passed)
{
    auto* document = passed.contains(frameClass, Qt::CaseInsensitive) ? nullptr : FSite.DocumentOf(frameClass);
    if (!document)
        return {};
    FrameState state { { document, document->Position() } };
    passed << frameClass;
    QList<FormNode*> inner;
    CollectFrames(document->Root(), inner);
    for (const auto* node : std::as_const(inner))
        state += StateOf(node->ClassName(), passed);
    return state;
}

void Designer::NoteFrames()
{
    FFrames.clear();
    for (const auto* node : FrameNodes())
        if (const auto name = node->ClassName(); !FFrames.contains(name))
            FFrames.insert(name, StateOf(name));
}

void Designer::FollowFrames()
{
    if (!Root() || FSite.Undo().InGesture())
        return;
    bool changed = false;
    for (auto* node : FrameNodes()) {
        const auto name = node->ClassName();
        const auto known = FFrames.constFind(name);
        if (known == FFrames.cend() || *known == StateOf(name))
            continue;
        RemakeFrame(*node);
        changed = true;
    }
    NoteFrames();
    if (changed)
        TellModified();
}

void Designer::RemakeFrame(FormNode& node)
{
    auto* old = FForm->ComponentOf(&node);
    if (!old)
        return;
    std::vector<std::unique_ptr<Quiet>> quiet;
    for (auto* designer : FSite.OpenDesigners())
        quiet.push_back(std::make_unique<Quiet>(*designer));
    const WeakRef<TComponent> kept(old);
    for (auto* inner : old->Components())
        Deselect(inner);
    Deselect(old);
    old->Destroying();
    FSite.NotifyRenamed(old, old->Name(), {});
    for (const auto& listener : DesignNotifications())
        if (kept)
            AtEventBorder([&] { listener->ItemDeleted(this, kept.get()); });
    if (kept)
        FForm->Unbind(*old);
    delete kept.get();
    TellSelection();
    const auto made = FForm->BuildNode(node, RootFinder());
    for (auto* designer : FSite.OpenDesigners())
        designer->ResolveLinks();
    if (!made.isEmpty())
        TellInserted(*made.first());
}
