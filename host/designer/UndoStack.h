#pragma once

#include "files/SaveTogether.h"

#include <QList>
#include <QString>

#include <functional>
#include <vector>

class FormNode;

// A place of a form file that a gesture changed: a property of a node, or (an empty name) the node itself: that it is
// there, its name, its place.
struct FormTouch {
    FormNode* Node;
    QString Property;
    friend bool operator==(const FormTouch&, const FormTouch&) = default;
};

// How a module's form and unit stood.
struct UndoState {
    int FormPosition = 0;
    QList<FileContent> Unit;
    friend bool operator==(const UndoState&, const UndoState&) = default;
};

// What can be brought back to an earlier state: a module with its form and its unit.
class UndoPart {
public:
    virtual UndoState Capture() = 0;
    // Brings form and unit to that state, byte for byte, and the live components after it, telling the listeners of
    // each as of any other change. `touches` are the places that differ.
    virtual void Restore(const UndoState& state, const QList<FormTouch>& touches) = 0;

protected:
    ~UndoPart() = default;
};

// What the user did, gesture by gesture, over all modules. A gesture is everything that happens while a Gesture lives;
// one within another is part of it. Undo goes back over one gesture: every file is as it was, byte for byte.
class UndoStack {
public:
    class Gesture {
    public:
        // Gestures of one subject (a component whose properties change one after the other) that follow each other
        // are one, until EndRun.
        Gesture(UndoStack& stack, const QString& title, const void* subject = nullptr);
        Gesture(const Gesture&) = delete;
        Gesture& operator=(const Gesture&) = delete;
        ~Gesture();
        // Takes back everything since the gesture began, and ends it.
        void Rollback();

    private:
        void End();
        UndoStack& FStack;
        bool FOpen = true;
    };

    // Called before each edit of a part.
    void Touch(UndoPart& part);
    void Note(UndoPart& part, const FormTouch& touch);
    // What comes next is no part of the gesture before.
    void EndRun() { FRun = nullptr; }
    // The part goes: what it was in cannot be undone any more.
    void Forget(UndoPart& part);

    // The part's unit has other names or another text by other means than a gesture: each earlier state of it is given
    // to be brought along. What cannot be (false) is forgotten.
    void Rewrite(UndoPart& part, const std::function<bool(QList<FileContent>&)>& rewrite);

    bool CanUndo() const { return !FDone.empty() && FOpen.empty(); }
    bool CanRedo() const { return !FUndone.empty() && FOpen.empty(); }
    // The title of the gesture that Undo (Redo) goes over; empty without one.
    QString UndoTitle() const { return FDone.empty() ? QString() : FDone.back().Title; }
    QString RedoTitle() const { return FUndone.empty() ? QString() : FUndone.back().Title; }
    // False where there is nothing.
    bool Undo();
    bool Redo();
    void Clear();
    // While it restores, edits are not new ones.
    bool IsRestoring() const { return FRestoring; }
    bool InGesture() const { return !FOpen.empty(); }

private:
    struct Change {
        UndoPart* Part;
        UndoState Before;
        UndoState After;
        QList<FormTouch> Touches;
    };
    struct Step {
        QString Title;
        const void* Subject = nullptr;
        std::vector<Change> Changes;
    };
    static Change* ChangeOf(Step& step, const UndoPart& part);
    void Restore(Step& step, UndoState Change::*state);
    void Close();
    void Append(Step& step);

    std::vector<Step> FOpen;
    std::vector<Step> FDone;
    std::vector<Step> FUndone;
    // The subject of the last gesture; nil when nothing may be added to it.
    const void* FRun = nullptr;
    bool FRestoring = false;
};
