#pragma once

#include "visual/TImageList.h"

#include <QStringList>

// An image list whose later pictures are found by class name: a fixed block of the form's own pictures, copied in by
// Assign, then one picture for each control class. The named picture at position N of the names is picture N + FDisp.
class TMrvImageList : public TImageList {
    Q_OBJECT
public:
    using TImageList::TImageList;

    // A picture can be added once for each name, without regard to case: for a name that is there, its picture's number
    // is given and nothing is added.
    int Add(const TBitmap& image, const TBitmap* mask, const QString& className);
    int AddMasked(const TBitmap& image, TColor maskColor, const QString& className);
    // The position among the names, without FDisp; -1 for none.
    int IndexByClassName(const QString& className) const;
    const QString& ImgClassNames(int index) const { return FClassNames.at(index); }

    // The fixed block; names are not touched, so Clear goes first.
    void Assign(const TImageList& source) override;
    // FDisp stays; the Assign that follows sets it.
    void Clear() override;
    // Deletes the name and the picture of that same number. With a fixed block the two are no partners; so it is to be.
    // Raises EListError beyond the names, before the picture is touched.
    void Delete(int index) override;

    int FDisp = 0;

private:
    using TImageList::Add;
    using TImageList::AddMasked;
    QStringList FClassNames;
};
