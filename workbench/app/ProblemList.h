#pragma once

#include "files/Problem.h"

#include <QTreeWidget>

// What is wrong in the user's files, one row each, with its place. A double click wants to see that.
class ProblemList : public QTreeWidget {
    Q_OBJECT
public:
    explicit ProblemList(QWidget* parent = nullptr);
    void Add(const Problem& problem);

Q_SIGNALS:
    void PlaceWanted(const QString& fileName, int line, int column);
};
