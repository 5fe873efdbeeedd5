#include "designer/UndoStack.h"

#include "rtl/Guard.h"

#include <algorithm>

UndoStack::Gesture::Gesture(UndoStack& stack, const QString& title, const void* subject)
    : FStack(stack)
{
    FStack.FOpen.push_back({ title, subject, {} });
}

UndoStack::Gesture::~Gesture()
{
    End();
}

void UndoStack::Gesture::End()
{
    if (std::exchange(FOpen, false))
        FStack.Close();
}

void UndoStack::Gesture::Rollback()
{
    if (!FOpen)
        return;
    auto step = std::move(FStack.FOpen.back());
    FStack.FOpen.back() = { step.Title, nullptr, {} };
    FStack.Restore(step, &Change::Before);
    End();
}

UndoStack::Change* UndoStack::ChangeOf(Step& step, const UndoPart& part)
{
    const auto found = std::find_if(
        step.Changes.begin(), step.Changes.end(), [&part](const Change& change) { return change.Part == &part; });
    return found == step.Changes.end() ? nullptr : &*found;
}

void UndoStack::Touch(UndoPart& part)
{
    if (FRestoring)
        return;
    for (auto& step : FOpen)
        if (!ChangeOf(step, part))
            step.Changes.push_back({ &part, part.Capture(), {}, {} });
}

void UndoStack::Note(UndoPart& part, const FormTouch& touch)
{
    if (FRestoring)
        return;
    for (auto& step : FOpen) {
        auto* change = ChangeOf(step, part);
        if (change && (change->Touches.isEmpty() || change->Touches.last() != touch))
            change->Touches << touch;
    }
}

void UndoStack::Close()
{
    auto step = std::move(FOpen.back());
    FOpen.pop_back();
    if (!FOpen.empty())
        return;
    for (auto& change : step.Changes)
        change.After = change.Part->Capture();
    std::erase_if(step.Changes, [](const Change& change) { return change.Before == change.After; });
    if (step.Changes.empty())
        return;
    FUndone.clear();
    const auto* subject = step.Subject;
    if (subject && subject == FRun && !FDone.empty())
        Append(step);
    else
        FDone.push_back(std::move(step));
    FRun = subject;
}

void UndoStack::Append(Step& step)
{
    auto& last = FDone.back();
    for (auto& change : step.Changes)
        if (auto* known = ChangeOf(last, *change.Part)) {
            known->After = change.After;
            known->Touches += change.Touches;
        } else {
            last.Changes.push_back(std::move(change));
        }
}

void UndoStack::Restore(Step& step, UndoState Change::*state)
{
    FRestoring = true;
    const Finally done([this] { FRestoring = false; });
    for (auto& change : step.Changes)
        change.Part->Restore(change.*state, change.Touches);
}

void UndoStack::Forget(UndoPart& part)
{
    const auto holds = [&part](Step& step) { return ChangeOf(step, part) != nullptr; };
    EndRun();
    std::erase_if(FDone, holds);
    std::erase_if(FUndone, holds);
    for (auto& step : FOpen)
        std::erase_if(step.Changes, [&part](const Change& change) { return change.Part == &part; });
}

void UndoStack::Rewrite(UndoPart& part, const std::function<bool(QList<FileContent>&)>& rewrite)
{
    EndRun();
    for (auto* steps : { &FDone, &FUndone })
        for (auto& step : *steps) {
            auto* change = ChangeOf(step, part);
            if (change && !(rewrite(change->Before.Unit) && rewrite(change->After.Unit)))
                return Forget(part);
        }
}

bool UndoStack::Undo()
{
    if (!CanUndo())
        return false;
    EndRun();
    auto step = std::move(FDone.back());
    FDone.pop_back();
    Restore(step, &Change::Before);
    FUndone.push_back(std::move(step));
    return true;
}

bool UndoStack::Redo()
{
    if (!CanRedo())
        return false;
    EndRun();
    auto step = std::move(FUndone.back());
    FUndone.pop_back();
    Restore(step, &Change::After);
    FDone.push_back(std::move(step));
    return true;
}

void UndoStack::Clear()
{
    EndRun();
    FDone.clear();
    FUndone.clear();
}
