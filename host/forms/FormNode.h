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
    QString name() const; // as spelled, "Font.Charset"
    QByteArrayView nameBytes() const { return m_pieces.name; }
    bool isNamed(QStringView name) const; // case does not count
    FormValue value() const; // decoded anew at each call
    // The value's bytes as they stand in the file; of a collection, what stands before its first item.
    QByteArrayView valueBytes() const { return m_pieces.value; }

    bool isCollection() const { return m_pieces.isCollection; }
    std::span<FormNode* const> items() const { return m_pieces.items; } // of a collection, in their order

    FormNode& owner() const { return *m_owner; }

    // The bytes of a property in their order: lead (with the name in it), value, items, close, trail.
    struct Pieces {
        QByteArrayView lead;
        QByteArrayView name;
        QByteArrayView value;
        std::span<FormNode* const> items;
        QByteArrayView close;
        QByteArrayView trail;
        bool isCollection = false;
    };
    const Pieces& pieces() const { return m_pieces; }

private:
    friend class FormTree;
    FormNode* m_owner = nullptr;
    Pieces m_pieces;
};

// An object of the form, or an item of one of its collections. Belongs to its document and lives, at one address, as
// long as the document does, also while it is removed. Changed through FormDocument only.
class FormNode {
public:
    enum class Kind { Object, Inherited, Inline, Item };

    Kind kind() const { return m_kind; }
    QString name() const; // empty where the object has none, and of an item
    bool isNamed(QStringView name) const; // case does not count
    QString className() const;
    std::optional<int> index() const { return m_header.index; } // the [n] behind the class or the item

    std::span<FormProperty* const> properties() const { return m_properties; }
    std::span<FormNode* const> children() const { return m_children; }
    FormProperty* property(QStringView name) const; // nil where there is none; case does not count
    FormNode* child(QStringView name) const; // directly below; nil where there is none; case does not count

    FormNode* parent() const { return m_parent; } // of an item: the owner of the collection; nil: root or removed
    FormProperty* collection() const { return m_collection; } // that an item is in, else nil
    FormDocument& document() const;
    int position() const; // among its siblings, from 0; -1 where it has no parent

    // The bytes of a node in their order: header, properties, middle, children, footer.
    struct Header {
        QByteArrayView bytes;
        QByteArrayView name;
        QByteArrayView className;
        std::optional<int> index;

        // The same header in other bytes, whose names stand `shift` bytes further on.
        Header rebased(QByteArrayView other, qsizetype shift) const;
    };
    const Header& header() const { return m_header; }
    QByteArrayView middle() const { return m_middle; }
    QByteArrayView footer() const { return m_footer; }

private:
    friend class FormProperty;
    friend class FormTree;
    Kind m_kind = Kind::Object;
    Header m_header;
    QByteArrayView m_middle;
    QByteArrayView m_footer;
    std::span<FormProperty* const> m_properties;
    std::span<FormNode* const> m_children;
    FormNode* m_parent = nullptr;
    FormProperty* m_collection = nullptr;
    FormTree* m_tree = nullptr;
};
