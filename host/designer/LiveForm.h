#pragma once

#include "designer/FormBuilder.h"
#include "designer/UndoStack.h"

#include <QHash>

#include <memory>

// A form file and the live components over it: which node a component stands for, and how a change of a component is
// written to its one line. Knows no listeners. A component that comes from an ancestor form or from a frame has a node
// of its own only once the form says something about it.
//
// Owns the document and the root; both go with it. Components die before their nodes.
class LiveForm {
public:
    LiveForm(std::unique_ptr<FormDocument> document, QByteArray text, FormClassSource& source);
    LiveForm(const LiveForm&) = delete;
    LiveForm& operator=(const LiveForm&) = delete;
    ~LiveForm();

    FormDocument& Document() const { return *FDocument; }
    FormLinks& Links() { return FLinks; }

    // Makes the components; what is wrong in the file is added to the problems. The links within the form are resolved,
    // and those to other forms that `otherRoot` knows.
    void Build(const FormLinks::FindRoot& otherRoot, Problems& problems);
    // Deletes the components; the document stays.
    void Discard();
    // Nil before Build and after Discard.
    TComponent* Root() const { return FRoot.get(); }

    // Whether the component is the root, one that it owns, or one of a frame on it.
    bool Holds(const TComponent* component) const;
    // Whether that is the address of a live component of the form; what is there is not looked at.
    bool Knows(const void* address) const { return FKnown.contains(address); }
    void Know(const TComponent& component) { FKnown.insert(&component); }
    // Nil for a component that the form file does not mention.
    FormNode* NodeOf(const TComponent* component) const { return FNodes.value(component); }
    TComponent* ComponentOf(const FormNode* node) const { return FComponents.value(node); }
    // The node; one that says "inherited" is added to the file where there was none.
    FormNode& NeedNode(TComponent& component);

    // Edits of the file after the live components. Each notes what it touched.

    // The property has a new value. `inherited` is the value that holds when the file says nothing, of a component that
    // comes from an ancestor; nil for others.
    void WriteProperty(TPersistent& instance, const QString& property, TPersistent* inherited);
    // `fileParent` is the component that the file nests it under where that is not its parent; nil for the parent.
    void AddNode(TComponent& component, TComponent* fileParent = nullptr);
    void RemoveNode(TComponent& component);
    void RenameNode(TComponent& component);
    // Every line that refers to a component of the form by its name takes the new one.
    void RenameReferences(const QString& oldName, const QString& newName);
    // Every object of that class, the root among them, names it anew in the file.
    void RenameClass(const QString& oldClass, const QString& newClass);
    // The component of an object whose class was renamed in the file is of that class.
    void TakeClass(const FormNode& node);
    // Puts the node among those of its class family that its live list orders: the n-th of these siblings.
    // `inherited` are those that come from an ancestor, in its order; empty in a form without one.
    void OrderNode(TComponent& component, const QList<TComponent*>& siblings, const QList<TComponent*>& inherited);
    void Write(FormNode& node, const QString& property, const FormValue& value);
    void Remove(FormNode& node, const QString& property);

    // The live components after the file, when the file was changed by other means (undo).

    // Makes the components of a node that has none; gives them, parents first.
    QList<TComponent*> BuildNode(FormNode& node, const FormLinks::FindRoot& otherRoot);
    // A frame that an ancestor's form holds, with all that is on it, for this form that inherits it.
    TComponent* BuildInheritedFrame(FormNode& ancestors, TComponent& parent, const FormLinks::FindRoot& otherRoot);
    void Bind(FormNode& node, TComponent& component);
    void Unbind(const TComponent& component);
    // Reads the property from the file; false when the file says nothing of it.
    bool ReadProperty(const FormNode& node, const QString& property, const FormLinks::FindRoot& otherRoot);
    // Reads it from the file of the frame that the component is or stands on; false where that says nothing of it.
    bool ReadFromFrame(TComponent& component, const QString& property, const FormLinks::FindRoot& otherRoot);
    // Whether the node stands in the file now.
    bool IsInFile(const FormNode& node) const;

    // Called with each place that is about to change or changed.
    std::function<void(const FormTouch&)> OnTouch;
    // Called before the file changes.
    std::function<void()> OnEdit;

private:
    QList<TComponent*> WithInner(const QList<TComponent*>& made);
    void OrderAmongInherited(const QList<TComponent*>& siblings, const QList<TComponent*>& inherited);
    void SetPlace(TComponent& component, std::optional<int> place);
    FormNode& ParentNode(TComponent& component);
    void WriteCollection(TCollection& collection, FormNode& node, const QString& path);
    void WriteStrings(const TStrings& strings, FormNode& node, const QString& path);
    void WriteValue(TPersistent& instance, const TPropInfo* info, const QString& name, FormNode& node,
        const QString& path, TPersistent* inherited);
    // These two tell whether the property is one that the file keeps in a way of its own.
    bool WritePlace(
        TPersistent& instance, const TPropInfo* info, const QString& name, FormNode& node, const QString& path);
    bool WriteFormSize(
        TPersistent& instance, const TPropInfo* info, const QString& name, FormNode& node, const QString& path);
    void WriteUnknown(const QVariant& value, FormNode& node, const QString& path);
    void WritePublished(
        TPersistent& instance, const TPropInfo& info, FormNode& node, const QString& path, TPersistent* inherited);
    FormValue ValueOf(const TPersistent& instance, const TPropInfo& info, const QVariant& value) const;
    void RenameClassIn(FormNode& node, const QString& oldClass, const QString& newClass);
    void RenameReferencesIn(FormNode& node, const QString& oldName, const QString& newName);
    void Touch(FormNode& node, const QString& property);

    FormClassSource& FSource;
    QByteArray FText;
    std::unique_ptr<FormDocument> FDocument;
    Problems FLateProblems;
    FormLinks FLinks;
    QHash<const TComponent*, FormNode*> FNodes;
    QHash<const FormNode*, TComponent*> FComponents;
    QSet<const void*> FKnown;
    std::unique_ptr<TComponent> FRoot;
};
