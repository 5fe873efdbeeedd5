#pragma once

#include "files/Problem.h"
#include "files/SourceFile.h"

#include <QList>
#include <QString>
#include <QXmlStreamAttributes>

#include <optional>

// The elements of a project file with the place of each. A file that is cut off gives what stands before the cut.
class XmlTree {
public:
    struct Element {
        QString Name;
        QXmlStreamAttributes Attributes;
        QString Text; // of the element itself, without blanks around
        int Line = 0;
        int Column = 0;
        qsizetype Start = 0; // of its tag in the file's text
        QList<int> Children;
    };

    // Elements nested deeper are no project file's.
    static constexpr int DeepestLevel = 100;

    // What is wrong with the text is added to `problems`: one message.
    XmlTree(const SourceFile& file, Problems& problems);

    bool IsEmpty() const { return FElements.isEmpty(); }
    const Element& Root() const { return FElements.first(); }

    // All children of that name, in order; all of any name for an empty one.
    QList<const Element*> Children(const Element& parent, const QString& name = {}) const;

    // The first element on the path of names below `parent`, or nil.
    const Element* Find(const Element& parent, std::initializer_list<QLatin1String> path) const;

    // The text of a child, and the attribute "Value" of a child; empty where there is none.
    QString ChildText(const Element& parent, QLatin1String name) const;
    QString ChildValue(const Element& parent, QLatin1String name) const;

    // All elements of that name, wherever they stand, in order.
    QList<const Element*> All(QLatin1String name) const;

    // What gives an attribute, or the text between the tags, another value in that text; nothing where there is none.
    static std::optional<SourceEdit> EditOf(
        const QString& text, const Element& element, QLatin1String attribute, const QString& value);
    static std::optional<SourceEdit> EditOfText(const QString& text, const Element& element, const QString& value);

    Problem ProblemAt(const Element& element, const QString& text, Problem::Kind severity = Problem::Warning) const;

private:
    QString FFileName;
    QList<Element> FElements;
};
