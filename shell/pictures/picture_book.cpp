// The device's bitmaps, cut from the vector sheets at the screen's
// device-pixel ratio. Each sheet's base is rendered once at full size; a
// picture is that base cut at its object's rectangle, with its elements
// painted over it, so every picture is opaque and carries its own piece of
// case or LCD background.
#include "shell/pictures/picture_book.h"

#include <QPainter>
#include <QString>
#include <QStringList>
#include <QSvgRenderer>
#include <cmath>
#include <memory>
#include <vector>

#include "shell/pictures/picture_sources.h"

namespace nautrix {
namespace {

int Px(qreal logical, qreal dpr) { return static_cast<int>(std::lround(logical * dpr)); }

QRect PixelRect(const Rect& r, qreal dpr) {
  return QRect(Px(r.left, dpr), Px(r.top, dpr), Px(r.width, dpr), Px(r.height, dpr));
}

// Client-area rectangle a picture is drawn for. A library sprite names the
// object it is shown on, so its rectangle is that object's.
Rect PlaceRect(const PictureSource& source) { return Info(source.place).rect; }

void PrepareSmooth(QPainter& painter) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
}

// One vector sheet and its base layer, rendered at the ratio on first use.
class SheetArt {
 public:
  SheetArt(Sheet sheet, qreal dpr)
      : sheet_(sheet), dpr_(dpr), svg_(QString::fromLatin1(SheetResource(sheet))) {}

  const QImage& Base() {
    if (base_.isNull()) {
      const QSize logical(Info(Obj::FrontCase).rect.width, Info(Obj::FrontCase).rect.height);
      base_ = QImage(QSize(Px(logical.width(), dpr_), Px(logical.height(), dpr_)),
                     QImage::Format_RGB32);
      base_.setDevicePixelRatio(dpr_);
      base_.fill(Qt::black);  // nothing of the sheet may leave a hole
      QPainter painter(&base_);
      PrepareSmooth(painter);
      Paint(painter, QString::fromLatin1(SheetBase(sheet_)));
    }
    return base_;
  }

  // Paints one element where it stands on the sheet; the painter speaks
  // sheet coordinates.
  void Paint(QPainter& painter, const QString& id) {
    if (!svg_.elementExists(id)) return;  // a missing figure shows as background
    const Obj home = HomeOf(id.toLatin1().constData());
    painter.save();
    if (home != Obj::Count) {
      const Rect r = Info(home).rect;
      painter.setClipRect(QRectF(r.left, r.top, r.width, r.height), Qt::IntersectClip);
    }
    svg_.render(&painter, id, svg_.boundsOnElement(id));
    painter.restore();
  }

  // The base cut at `r`, with `elements` painted over it.
  QImage Cut(const Rect& r, const char* elements) {
    QImage image = Base().copy(PixelRect(r, dpr_));
    image.setDevicePixelRatio(dpr_);
    const QStringList ids =
        QString::fromLatin1(elements).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!ids.isEmpty()) {
      QPainter painter(&image);
      PrepareSmooth(painter);
      painter.translate(-r.left, -r.top);
      for (const QString& id : ids) Paint(painter, id);
    }
    return image;
  }

 private:
  Sheet sheet_;
  qreal dpr_;
  QSvgRenderer svg_;
  QImage base_;
};

// Pastes objects' own pictures over `image`, which shows `place`, back to
// front in the order given.
template <typename Objects>
void PasteObjects(QImage& image, const Rect& place, const PictureImages& images,
                  const Objects& objects) {
  QPainter painter(&image);
  painter.translate(-place.left, -place.top);
  for (Obj o : objects) {
    Pic pic = Info(o).picture;
    if (pic == Pic::None) pic = Pic::Number8;  // a digit shows 8 when all is lit
    const Rect r = Info(o).rect;
    painter.drawImage(QPointF(r.left, r.top), images[static_cast<int>(pic)]);
  }
}

// The LCD objects back to front: GameType(0) is the backmost, am the topmost
// below ResetScreen itself.
std::vector<Obj> EveryLcdObject() {
  std::vector<Obj> objects;
  for (int i = Index(Obj::GameType0); i >= Index(Obj::am); --i) objects.push_back(static_cast<Obj>(i));
  return objects;
}

}  // namespace

PictureBook::PictureBook(qreal device_pixel_ratio) : dpr_(device_pixel_ratio) {
  SheetArt front(Sheet::Front, dpr_);
  std::unique_ptr<SheetArt> back;
  PictureImages images;
  const auto composite = [](const PictureSource& s) {
    return QLatin1String(s.elements) == QLatin1String(kBaseWithAlwaysLit) ||
           QLatin1String(s.elements) == QLatin1String(kEveryLcdObject);
  };
  for (int i = 1; i < kPicCount; ++i) {
    const PictureSource& source = SourceOf(static_cast<Pic>(i));
    if (composite(source)) continue;
    if (source.sheet == Sheet::Back) {
      if (!back) back = std::make_unique<SheetArt>(Sheet::Back, dpr_);
      images[i] = back->Cut(PlaceRect(source), source.elements);
    } else {
      images[i] = front.Cut(PlaceRect(source), source.elements);
    }
  }
  for (int i = 1; i < kPicCount; ++i) {
    const PictureSource& source = SourceOf(static_cast<Pic>(i));
    if (!composite(source)) continue;
    const Rect place = PlaceRect(source);
    images[i] = front.Cut(place, "");
    if (QLatin1String(source.elements) == QLatin1String(kEveryLcdObject)) {
      PasteObjects(images[i], place, images, EveryLcdObject());
    } else {
      PasteObjects(images[i], place, images, kAlwaysLit);
    }
  }
  pictures_ = std::move(images);
}

QImage RenderIcon(int size) {
  // The head is drawn anew for 16 and for 24 pixels; the 22-pixel icon is the
  // inner 22 x 22 of the 24-pixel drawing.
  QSvgRenderer svg(QString::fromLatin1(size == 16   ? kIcon16Resource
                                       : size <= 24 ? kIcon24Resource
                                                    : kIconResource));
  svg.setViewBox(size == 22 ? QRectF(1, 1, 22, 22) : QRectF(QPointF(0, 0), svg.defaultSize()));
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  PrepareSmooth(painter);
  svg.render(&painter, QRectF(0, 0, size, size));
  return image;
}

QImage RenderPage(int page, qreal device_pixel_ratio) {
  const QSize logical(413, 250);
  QImage image(QSize(Px(logical.width(), device_pixel_ratio),
                     Px(logical.height(), device_pixel_ratio)),
               QImage::Format_RGB32);
  image.setDevicePixelRatio(device_pixel_ratio);
  image.fill(Qt::white);
  QSvgRenderer svg(QString::fromLatin1(PageResource(page)));
  QPainter painter(&image);
  PrepareSmooth(painter);
  svg.render(&painter, QRectF(QPointF(0, 0), QSizeF(logical)));
  return image;
}

}  // namespace nautrix
