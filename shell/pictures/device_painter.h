// Draws the device window as it stands: every visible client object, back to
// front in the fixed stacking order, inside the given region only.
#pragma once

#include <QPainter>
#include <QRegion>

#include "device/form1.h"
#include "shell/pictures/picture_book.h"

namespace nautrix {

void PaintDevice(QPainter& painter, const Form1& form, const PictureBook& book,
                 const QRegion& region);

}  // namespace nautrix
