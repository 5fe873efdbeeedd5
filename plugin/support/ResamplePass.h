#pragma once

#include "support/MrvResample.h"

#include <QImage>

// The two passes of the scaler. All images are Format_RGB32; the arithmetic of each pixel is that of ComputePixel.
namespace Resample {

// Makes each row of `target` from the same row of `source`; `columns` has an entry for each column of `target`.
void acrossColumns(const QImage& source, QImage& target, const TContributorList& columns);

// A width at which rows may be read in steps of several pixels. Pixels behind the width asked for mean nothing.
int roomyWidth(int width);

// Makes each row of `target` from rows of `source`, column by column; `rows` has an entry for each row of `target`.
// `source` is of the roomy width.
void acrossRows(const QImage& source, QImage& target, const TContributorList& rows);

}
