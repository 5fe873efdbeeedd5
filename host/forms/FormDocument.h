#pragma once

#include "forms/FormEncoding.h"
#include "forms/FormError.h"
#include "forms/FormFormat.h"
#include "forms/FormNode.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class FormEditor;
class FormJournal;
class FormTree;
struct FormNames;

struct FormReadOptions {
    QString FileName; // for messages; its suffix .lfm chooses the way new text is written
    QByteArray CodePage = QByteArrayLiteral("windows-1252"); // of bytes that are not valid UTF-8
};

// A form file, held so that every byte that nobody edited is written back as it was.
//
// Owns its nodes, properties and the bytes of the file; all of them live as long as the document, at one address,
// also after they were removed. Reading never throws; an edit cannot fail, except where its comment says so, and
// changes only the bytes it is about. Works alike on text and binary forms. Every edit is kept in a journal: going
// back to a position gives the bytes and the very objects of that time. Names that are given must be names (letters,
// digits, _, parted by dots where that is meant); they are written as they come.
class FormDocument {
public:
    // Reads a form in text or in binary form (bare, or in the resource header of old files).
    static FormResult<std::unique_ptr<FormDocument>> Read(const QByteArray& bytes, const FormReadOptions& options = {});
    // As Read(); the file's path becomes options.FileName. A file that cannot be opened is an error, too.
    static FormResult<std::unique_ptr<FormDocument>> Load(const QString& path, FormReadOptions options = {});
    // A document with a root alone, in text.
    static std::unique_ptr<FormDocument> Create(
        const QString& className, const QString& name, const QByteArray& lineEnd, const FormReadOptions& options = {});
    ~FormDocument();

    QByteArray Bytes() const; // as they are to be written now
    FormFormat Format() const;
    const FormEncoding& Encoding() const;
    const QString& FileName() const { return FFileName; }
    QStringList Notes() const; // what is odd in the file and was kept as it was, one sentence each

    FormNode& Root() const;
    FormNode* Find(QStringView name) const; // in the whole tree of objects; nil where there is none

    // Gives the property the value, in place; a property that is not there is added behind the last one, before the
    // child objects. Returns it. A value that is there already changes nothing.
    FormProperty& SetProperty(FormNode& node, const QString& name, const FormValue& value);
    // False where there is no such property.
    bool RemoveProperty(FormNode& node, QStringView name);
    void RemoveProperty(FormProperty& property);

    // Adds an object without properties, written in the file's own style, at the position among the parent's children
    // (-1: at their end).
    FormNode& AddChild(
        FormNode& parent, FormNode::Kind kind, const QString& className, const QString& name, int position = -1);
    // Adds an item at the end of a collection (-1) or at the position; makes the collection where it is missing.
    FormNode& AddItem(FormNode& owner, const QString& property, int position = -1);
    // Takes an object or an item out of its parent. The root stays: false.
    bool Remove(FormNode& node);
    // Puts a node at the position (-1: the end) below a parent; its lines are indented anew where the depth differs.
    // False where the node is the root or the parent is the node itself or below it.
    bool Move(FormNode& node, FormNode& parent, int position = -1);
    // Puts a node or an item at another place among its siblings.
    bool Reorder(FormNode& node, int position);

    void Rename(FormNode& node, const QString& name); // an empty name takes it away
    void SetClassName(FormNode& node, const QString& className);
    void SetIndex(FormNode& node, std::optional<int> index);
    void SetKind(FormNode& node, FormNode::Kind kind);

    // The journal: the position moves on by one for every edit and back by undo. A new edit forgets what could be
    // redone.
    int Position() const;
    int LastPosition() const; // how far RedoTo can go
    void UndoTo(int position);
    void RedoTo(int position);

    const FormTree& Tree() const { return *FTree; } // the pieces, for the other classes of this folder

private:
    FormDocument(std::unique_ptr<FormTree> tree, QString fileName);
    FormEditor& Editor();
    void ChangeHeader(FormNode& node, const FormNames& names);

    std::unique_ptr<FormTree> FTree;
    std::unique_ptr<FormJournal> FJournal;
    std::unique_ptr<FormEditor> FEditor; // made with the first edit
    QString FFileName;
};
