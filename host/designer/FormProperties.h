#pragma once

#include "designer/FormLinks.h"
#include "forms/FormNode.h"
#include "packages/Catalogue.h"

class TControl;

// Published properties as a form file names them: a path of names ("Font.Height", "SQL.Strings", "Left").
namespace FormProperties {

// Where a path leads: the object at its end and the last name. The object is nil where the path leaves what is known.
struct Place {
    TPersistent* Instance = nullptr;
    QString Name;
    const TPropInfo* Info = nullptr;
};
Place Find(TPersistent& instance, const QString& path);
// The same, except that the lines of a list ("SQL.Strings") are the list ("SQL").
Place FindWhole(TPersistent& instance, const QString& path);

// While one lives, a component takes its values as they are, as when its form is read: nothing sizes itself by them.
class Taking {
public:
    explicit Taking(TComponent& component);
    Taking(const Taking&) = delete;
    Taking& operator=(const Taking&) = delete;
    ~Taking();

private:
    WeakRef<TComponent> FComponent;
    bool FWasLoading;
};

// Gives the object the value that the file has. References become links. A value that the object does not take stays
// with the file alone.
void Read(TPersistent& instance, const FormProperty& property, TComponent& scope, FormLinks& links);

// Position and size from other places than Left, Top, Width and Height; what the node does not say stays.
void ReadBounds(TControl& control, const FormNode& node, const GeometryPlaces& places);

// Gives the property the value it has when the file says nothing of it.
void Reset(TPersistent& instance, const QString& path);

// The item of the file that an item of a live collection was read from belongs to its place: the n-th to the n-th.
void ReadCollection(TCollection& collection, const FormProperty& property, TComponent& scope, FormLinks& links);

}
