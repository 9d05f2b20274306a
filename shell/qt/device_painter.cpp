#include "shell/qt/device_painter.h"

namespace nautrix {

void PaintDevice(QPainter& painter, const Form1& form, const PictureBook& book, const QRect& clip) {
  // Every picture is opaque and exactly its object's size: nothing blends and
  // nothing is scaled, so bitmaps are drawn as they are.
  for (int i = kClientObjectCount - 1; i >= 0; --i) {
    const Obj o = static_cast<Obj>(i);
    const Pic pic = form.Picture(o);
    if (!form.IsVisible(o) || pic == Pic::None) continue;
    const Rect r = form.ObjectRect(o);
    const QRect target(r.left, r.top, r.width, r.height);
    if (!target.intersects(clip)) continue;
    painter.drawPixmap(target.topLeft(), book.Picture(pic));
  }
}

}  // namespace nautrix
