#pragma once

#include "designer/FormClassSource.h"
#include "designer/FormLinks.h"

#include <QSet>

class FormNode;

// Makes live components of a form file. What comes from an ancestor form or from a frame is made first, from their
// files; the form's own nodes are applied over it. Nothing that is wrong in a file stops it: the rest is made, the file
// keeps what could not be, and a problem tells of it.
class FormBuilder {
public:
    // Hears of each component of the form's own file, with its node, parents first.
    using Bind = std::function<void(FormNode&, TComponent&)>;

    FormBuilder(FormClassSource& source, FormLinks& links, Problems& problems);

    void SetBind(Bind bind) { FBind = std::move(bind); }
    // Where the document's bytes stand, to tell the place of a problem.
    void SetText(QByteArrayView text, const QString& fileName);

    // The form of that document; the caller owns it. Its links are not resolved, its components not told that they are
    // loaded.
    TComponent* Build(FormDocument& document);
    // One component of the form, with all that its node holds, below its parent.
    TComponent* BuildChild(FormNode& node, TComponent& parent, TComponent& owner);
    // The same of an ancestor's node, for a form that inherits it.
    TComponent* BuildInherited(FormNode& node, TComponent& parent, TComponent& owner);
    // The class of an object of the form; the placeholder for one that nobody knows.
    TClass ClassOf(const FormNode& node);
    // Reads a node's properties again.
    void ReadProperties(const FormNode& node, TComponent& component, TComponent& scope);

private:
    enum class Layer { Own, Ancestor, Frame };

    TClass RootBase(FormDocument& document, const QString& className);
    void ApplyAncestors(FormDocument& document, TComponent& root, Layer layer);
    void Apply(FormNode& node, TComponent& component, TComponent& owner, Layer layer);
    TComponent* Child(FormNode& node, TComponent& parent, TComponent& owner, Layer layer);
    TComponent* MakeFrame(FormNode& node, TComponent& owner);
    TComponent* Make(TClass aClass, TComponent* owner);
    void Prepare(FormNode& node, TComponent& component, TComponent* parent, Layer layer);
    void Name(FormNode& node, TComponent& component);
    void Report(const FormNode& node, const QString& text);

    FormClassSource& FSource;
    FormLinks& FLinks;
    Problems& FProblems;
    Bind FBind;
    QByteArrayView FText;
    QString FFileName;
    QSet<QString> FReported;
    QStringList FOpenFrames;
    QHash<QString, TClass> FClasses;
};
