#pragma once

#include "data/TDataSetDesigner.h"
#include "design/DesignIntf.h"
#include "designer/DesignerSite.h"
#include "designer/LiveForm.h"
#include "rtl/TInterfacedObject.h"

// The designer of one form, frame or data module. A facade: it answers nil once its form is closed and while it is
// dormant, and stays valid until the process ends. It edits live components, form file and unit together; each
// operation is a gesture of its own unless one is under way.
//
// Order of what it tells, for one insertion: ComponentRenamed with an empty old name (the component has its state, its
// owner and, a field, its dataset), ItemInserted, SelectionChanged, ItemsModified; then the same for each open form
// that inherits. For one deletion: the selection shrinks, ComponentRenamed with an empty new name, ItemDeleted, the
// component goes; at the end SelectionChanged and ItemsModified.
class Designer : public Facade<IDesigner, IRoot>, public IDesignerHook, public IFieldDesigner, public UndoPart {
public:
    explicit Designer(DesignerSite& site);
    ~Designer() override;

    // Shows the form. What is wrong in it is added to the problems.
    void Open(std::unique_ptr<FormDocument> document, QByteArray text, Problems& problems);
    // The form goes; the document with it. Nothing is told here.
    void Close();
    // The components go until Resurrect, the document stays.
    void GoDormant();
    bool IsDormant() const { return FForm && !FForm->Root(); }
    // Nil after Close.
    LiveForm* Form() const { return FForm.get(); }
    TComponent* Root() const { return FForm ? FForm->Root() : nullptr; }
    QString RootName() const;
    QString RootClassName() const;

    void Activate() override;
    void Modified() override;
    void Resurrect() override;
    void GetSelections(const InterfacePtr<IDesignerSelections>& list) override;
    void SetSelections(const InterfacePtr<IDesignerSelections>& list) override;
    void SelectComponent(TPersistent* instance) override;
    void ClearSelection() override;
    TComponent* GetComponent(const QString& name) override;
    TComponent* GetRoot() override { return Root(); }
    TComponent* CreateComponent(
        TClass componentClass, TComponent* parent, int left, int top, int width, int height) override;
    InterfacePtr<IDesigner> GetAncestorDesigner() override;
    void ModuleFileNames(QString& unitName, QString& formName, QString& projectName) override;
    bool IsComponentLinkable(TComponent* component) override;
    void MakeComponentLinkable(TComponent* component) override;
    InterfacePtr<IDesigner> GetDesigner() override { return this; }

    // The component that a handle of the tools API names; nil for a handle that is none of this form's.
    TComponent* FromHandle(TOTAHandle handle) const;
    // What is selected and still there.
    QList<TPersistent*> Selection() const;

    // Deletes components with what stands on them: first what is no data, then fields, then datasets and connections.
    // Raises EInvalidOperation with SCantDeleteAncestor when one of them comes from an ancestor or belongs to a frame;
    // nothing is deleted then.
    void DeleteComponents(const QList<TComponent*>& components);
    void DeleteSelection();
    // Raises EComponentError for a name that cannot be.
    void RenameComponent(TComponent& component, const QString& newName);
    // A component that somebody else made for the form (a field made by a dataset) is complete and has its name. Called
    // by the hook; harmless for one that is known.
    void Adopt(TComponent& component, TComponent* fileParent = nullptr);
    // Somebody else deletes a component of the form: told like any deletion, before it goes.
    void Release(TComponent& component);

    // The same part of the ancestor's form (opened when it is not), of a component that comes from there; nil.
    TPersistent* Inherited(const TPersistent& part) const;
    // A name that no component of the form and of the forms that inherit from it bears.
    QString UniqueName(TClass aClass) const;
    // Sets the links that lead to other forms, for one that was just opened.
    void ResolveLinks();
    // Frames that stand on the form are made anew where their own forms have changed since.
    void FollowFrames();
    // A form that links led to is closing: they are kept and resolved when it is open again.
    class Quiet;

    // IDesignerHook
    void PropertyChanged(TPersistent* instance, const QString& property) override;
    void ValidateRename(TComponent* component, const QString& oldName, const QString& newName) override;
    void Renamed(TComponent* component, const QString& oldName) override;

    // IFieldDesigner
    TField* CreateField(TDataSet* dataSet, TClass fieldClass, const QString& name,
        const std::function<void(TField*)>& prepare) override;
    void DeleteField(TField* field) override;

    // UndoPart
    UndoState Capture() override;
    void Restore(const UndoState& state, const QList<FormTouch>& touches) override;

private:
    void Attach();
    FormLinks::FindRoot RootFinder();
    TClass ClassForForm(TClass componentClass) const;
    void CheckParent(const TComponent& parent) const;
    TComponent* MakeComponent(TClass aClass, TComponent* parent, const QRect& place);
    void MakeCompanions(TComponent& component);
    void Place(TComponent& component, const QRect& place);
    void Declare(TComponent& component);
    void Undeclare(const QString& name);
    void Report(const Failure& failure);

    // Telling. Each keeps what it tells of alive or stops when it is gone.
    void TellInserted(TComponent& component);
    void TellRenamed(TComponent& component, const QString& oldName);
    void TellSelection();
    void TellModified();
    void Select(const QList<TPersistent*>& items);

    void DeleteOne(TComponent& component);
    void DeleteInOrder(QList<TComponent*> doomed);
    void CollectForDeletion(TComponent& component, QList<TComponent*>& found) const;
    void Deselect(const TPersistent* item);

    // The forms that inherit from this one follow.
    void InsertInDescendants(TComponent& component);
    void PassOnInsertion(TComponent& component, FormNode* frame);
    void InsertInherited(TComponent& original, FormNode* frame);
    void DeleteInDescendants(const QString& name);
    void RenameInDescendants(const QString& oldName, const QString& newName);
    void PassOn(TPersistent& instance, const QString& property);
    void TakeOverValue(
        TPersistent& target, const TPropInfo& info, const TPersistent& original, const TComponent& originalRoot);
    void TakeOver(TPersistent& original, const QString& componentName, const QString& property);
    void TakeOverFieldOrder(TComponent& field);
    void RenameRoot(const QString& oldName);
    void NoteRootClass();
    void RenameInOtherForms(const QString& oldName, const QString& newName);

    // How the form of a frame, and of those that stand on it, stood when it was made.
    using FrameState = QList<std::pair<const FormDocument*, int>>;
    void NoteFrames();
    QList<FormNode*> FrameNodes() const;
    FrameState StateOf(const QString& frameClass, QStringList passed = {});
    void RemakeFrame(FormNode& node);

    // After an undo.
    void RestoreUnit(const UndoState& state);
    void Reconcile(const QList<FormTouch>& touches);
    void DropWhatIsGone(const QList<FormNode*>& nodes);
    void AdjustNodes(const QList<FormNode*>& nodes);
    void MakeNode(FormNode& node, QList<WeakRef<TComponent>>& made, QList<WeakRef<TComponent>>& changed);
    void ReadUnsaid(TComponent& component, const QString& path);
    void ForgetUnsaid(const QList<FormNode*>& nodes);

    // The order of fields.
    void WriteFieldOrder(TComponent& field);
    QList<TComponent*> InheritedFields(const TComponent& parent) const;
    QList<TComponent*> FieldsAsInFile(const TComponent& parent) const;
    QList<TComponent*> OrderAsInFile(TComponent& parent);
    void OrderFields(const QList<FormNode*>& nodes, QList<WeakRef<TComponent>>& changed);
    void MakeWhatIsNew(const QList<FormNode*>& nodes, QList<WeakRef<TComponent>>& changed);
    void ReadTouched(const QList<FormTouch>& touches, QList<WeakRef<TComponent>>& changed);
    void SelectChanged(const QList<WeakRef<TComponent>>& changed);

    DesignerSite& FSite;
    std::unique_ptr<LiveForm> FForm;
    QByteArray FText;
    // The class of the form as its site knows it.
    QString FKnownClass;
    QHash<QString, FrameState> FFrames;
    QList<WeakRef<TPersistent>> FSelection;
    // While above 0, changes of live components are not written to the file.
    int FQuiet = 0;
    // Components being made: their name is told when they are complete.
    QSet<const TComponent*> FInMaking;
};

// While one lives, changes of the designer's live components are not edits.
class Designer::Quiet {
public:
    explicit Quiet(Designer& designer)
        : FDesigner(designer)
    {
        ++FDesigner.FQuiet;
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() { --FDesigner.FQuiet; }

private:
    Designer& FDesigner;
};
