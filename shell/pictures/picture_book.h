// Every bitmap of the device window, rendered from the vector sheets at the
// screen's device-pixel ratio, so the device is crisp at 100 % and at 200 %;
// the program's icon and the leaflet's pages from theirs.
#pragma once

#include <QImage>
#include <array>

#include "device/screen_objects.h"

namespace nautrix {

using PictureImages = std::array<QImage, kPicCount>;

class PictureBook {
 public:
  // Renders every picture at the ratio.
  explicit PictureBook(qreal device_pixel_ratio);
  // Takes pictures rendered before, one per Pic, at the ratio.
  PictureBook(qreal device_pixel_ratio, PictureImages pictures)
      : dpr_(device_pixel_ratio), pictures_(std::move(pictures)) {}
  // The picture, opaque; its logical size (size / devicePixelRatio) is the
  // size of every object that shows it.
  const QImage& Picture(Pic pic) const { return pictures_[static_cast<int>(pic)]; }
  qreal devicePixelRatio() const { return dpr_; }

 private:
  qreal dpr_;
  PictureImages pictures_;
};

// The program's icon, the head of the nautrix, at the sizes a desktop asks
// for: size x size pixels, premultiplied ARGB.
inline constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};
QImage RenderIcon(int size);

// Page 1 to 9 of the instruction leaflet, 413 x 250 logical pixels.
QImage RenderPage(int page, qreal device_pixel_ratio);

}  // namespace nautrix
