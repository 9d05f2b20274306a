// Placeholder pictures of the right sizes until the artwork lands.
#include "shell/qt/picture_book.h"

#include <QPainter>

namespace nautrix {
namespace {

QSize PictureSize(Pic pic) {
  for (int i = 0; i < kObjectCount; ++i) {
    const ObjectInfo& info = Info(static_cast<Obj>(i));
    if (info.picture == pic) return {info.rect.width, info.rect.height};
  }
  return {};
}

}  // namespace

PictureBook::PictureBook(qreal device_pixel_ratio) : dpr_(device_pixel_ratio) {
  for (int i = 1; i < kPicCount; ++i) {
    const Pic pic = static_cast<Pic>(i);
    const QSize size = PictureSize(pic);
    QPixmap pixmap(size * dpr_);
    pixmap.setDevicePixelRatio(dpr_);
    pixmap.fill(pic == Pic::FrontCase ? QColor(70, 70, 80) : QColor(40, 40, 40));
    pictures_[i] = pixmap;
  }
}

QIcon AppIcon() {
  QPixmap pixmap(32, 32);
  pixmap.fill(QColor(200, 60, 60));
  return QIcon(pixmap);
}

QImage RenderPage(int /*page*/, qreal device_pixel_ratio) {
  QImage image(QSize(413, 250) * device_pixel_ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(device_pixel_ratio);
  image.fill(Qt::white);
  return image;
}

}  // namespace nautrix
