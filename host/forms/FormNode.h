#pragma once

#include "forms/FormValue.h"

#include <QByteArrayView>
#include <QString>

#include <optional>
#include <span>

class FormDocument;
class FormNode;
class FormTree;

// One property of a node. Belongs to its document and lives, at one address, as long as the document does, also
// while it is removed (an undo brings the same object back). Changed through FormDocument only.
class FormProperty {
public:
    QString Name() const; // as spelled, "Font.Charset"
    QByteArrayView NameBytes() const { return FPieces.Name; }
    bool IsNamed(QStringView name) const; // case does not count
    FormValue Value() const; // decoded anew at each call
    // The value's bytes as they stand in the file; of a collection, what stands before its first item.
    QByteArrayView ValueBytes() const { return FPieces.Value; }

    bool IsCollection() const { return FPieces.IsCollection; }
    std::span<FormNode* const> Items() const { return FPieces.Items; } // of a collection, in their order

    FormNode& Owner() const { return *FOwner; }

    // The bytes of a property in their order: lead (with the name in it), value, items, close, trail.
    struct Pieces {
        QByteArrayView Lead;
        QByteArrayView Name;
        QByteArrayView Value;
        std::span<FormNode* const> Items;
        QByteArrayView Close;
        QByteArrayView Trail;
        bool IsCollection = false;
    };
    const Pieces& ThePieces() const { return FPieces; }

private:
    friend class FormTree;
    FormNode* FOwner = nullptr;
    Pieces FPieces;
};

// An object of the form, or an item of one of its collections. Belongs to its document and lives, at one address, as
// long as the document does, also while it is removed. Changed through FormDocument only.
class FormNode {
public:
    enum class Kind { Object, Inherited, Inline, Item };

    Kind TheKind() const { return FKind; }
    QString Name() const; // empty where the object has none, and of an item
    bool IsNamed(QStringView name) const; // case does not count
    QString ClassName() const;
    std::optional<int> Index() const { return FHeader.Index; } // the [n] behind the class or the item

    std::span<FormProperty* const> Properties() const { return FProperties; }
    std::span<FormNode* const> Children() const { return FChildren; }
    FormProperty* Property(QStringView name) const; // nil where there is none; case does not count
    FormNode* Child(QStringView name) const; // directly below; nil where there is none; case does not count

    FormNode* Parent() const { return FParent; } // of an item: the owner of the collection; nil: root or removed
    FormProperty* Collection() const { return FCollection; } // that an item is in, else nil
    FormDocument& Document() const;
    int Position() const; // among its siblings, from 0; -1 where it has no parent

    // The bytes of a node in their order: header, properties, middle, children, footer.
    struct Header {
        QByteArrayView Bytes;
        QByteArrayView Name;
        QByteArrayView ClassName;
        std::optional<int> Index;

        // The same header in other bytes, whose names stand `shift` bytes further on.
        Header Rebased(QByteArrayView other, qsizetype shift) const;
    };
    const Header& TheHeader() const { return FHeader; }
    QByteArrayView Middle() const { return FMiddle; }
    QByteArrayView Footer() const { return FFooter; }

private:
    friend class FormProperty;
    friend class FormTree;
    Kind FKind = Kind::Object;
    Header FHeader;
    QByteArrayView FMiddle;
    QByteArrayView FFooter;
    std::span<FormProperty* const> FProperties;
    std::span<FormNode* const> FChildren;
    FormNode* FParent = nullptr;
    FormProperty* FCollection = nullptr;
    FormTree* FTree = nullptr;
};
