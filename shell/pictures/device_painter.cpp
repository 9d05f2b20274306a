#include "shell/pictures/device_painter.h"

namespace nautrix {

void PaintDevice(QPainter& painter, const Form1& form, const PictureBook& book,
                 const QRegion& region) {
  // Every picture is opaque and exactly its object's size: nothing blends and
  // nothing is scaled, so bitmaps are copied as they are. One rectangle of the
  // region at a time: under a clip of one rectangle a bitmap is a plain copy,
  // where a clip of several would send the case's every row through the
  // painter's general path and its helper threads, once a second.
  for (const QRect& clip : region) {
    painter.setClipRect(clip);
    for (int i = kClientObjectCount - 1; i >= 0; --i) {
      const Obj o = static_cast<Obj>(i);
      const Pic pic = form.Picture(o);
      if (!form.IsVisible(o) || pic == Pic::None) continue;
      const Rect r = form.ObjectRect(o);
      const QRect target(r.left, r.top, r.width, r.height);
      if (target.intersects(clip)) painter.drawImage(target.topLeft(), book.Picture(pic));
    }
  }
}

}  // namespace nautrix
