#pragma once

#include "forms/FormTextPrinter.h"
#include "forms/FormTree.h"

#include <memory>

// Spells what an edit adds to a tree, in the tree's format. The bytes it gives are new; nothing in the tree changes.
class FormScribe {
public:
    static std::unique_ptr<FormScribe> Of(const FormTree& tree, const QString& fileName);
    virtual ~FormScribe() = default;

    struct Spelled {
        QByteArray Lead; // of a property
        qsizetype NameAt = 0; // in lead
        QByteArray Value;
        QByteArray Close; // of a collection
        QByteArray Trail;
    };
    struct Frame {
        QByteArray Middle;
        QByteArray Footer;
    };
    // A property that a node does not have yet. Of a collection without its items.
    virtual Spelled NewProperty(const FormNode& owner, const QByteArray& name, const FormValue& value) const = 0;
    // Other bytes for the value of a property that is there: value and close.
    virtual Spelled NewValue(const FormProperty& property, const FormValue& value) const = 0;
    // The part of a property's lead that stays before another value: without a line end behind the equals sign.
    virtual QByteArrayView LeadFor(QByteArrayView lead) const = 0;
    // The header of a new node, and how the node ends.
    virtual QByteArray NewHeader(const QByteArray& indent, const FormNames& names) const = 0;
    virtual Frame NewFrame(const QByteArray& indent, FormNode::Kind kind) const = 0;
    // The header of a node that is there, saying something else.
    virtual QByteArray ChangedHeader(const FormNode& node, const FormNames& names) const = 0;
    // Where className and name of such a header stand.
    virtual FormNode::Header Locate(QByteArrayView header, const FormNames& names) const = 0;

    // What a new child of a node, or a new item of a collection, stands behind in its line.
    virtual QByteArray ChildIndent(const FormNode& parent) const = 0;
    virtual QByteArray ItemIndent(const FormProperty& collection) const = 0;

    // What must stand between bytes that come to lie side by side, so that they stay two: nothing or a line end.
    virtual QByteArray Gap(QByteArrayView before, QByteArrayView after) const = 0;
    virtual bool Indents() const = 0; // depth shows in the bytes
};
