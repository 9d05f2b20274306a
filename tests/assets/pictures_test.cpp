// The device's artwork as the program uses it: every picture is opaque and of
// its object's size at both pixel ratios, and the built pictures are the
// art's. (The beeps are heard at every beat of a game in the e2e tier's game
// sound test.)
#include <gtest/gtest.h>

#include <memory>

#include "shell/pictures/built_pictures.h"
#include "tests/shell/qt_test_app.h"

namespace nautrix {
namespace {

// Everything the window draws covers its rectangle exactly, with no holes:
// each picture is opaque, each object's own is the object's size, and at
// twice the ratio every picture is drawn anew at twice the size. At 100 % the
// program shows what the build rendered: the same pictures and icon that the
// art renders now.
TEST(Pictures, OpaqueOfEachObjectsSizeAtBothRatiosAndBuiltAsTheArtRendersThem) {
  TestApp();
  const std::unique_ptr<PictureBook> built[] = {PicturesFor(1), PicturesFor(2)};
  const auto pixels = [&](Pic pic, int dpr = 1) {
    return built[dpr - 1]->Picture(pic).convertToFormat(QImage::Format_ARGB32);
  };
  const PictureBook rendered(1);
  for (int dpr : {1, 2}) {
    for (int i = 1; i < kPicCount; ++i) {
      const QImage image = pixels(static_cast<Pic>(i), dpr);
      // Opaque: the picture without its alpha channel is the same picture.
      const QImage without_alpha = image.convertToFormat(QImage::Format_RGB32);
      EXPECT_TRUE(!image.isNull() && without_alpha.convertToFormat(QImage::Format_ARGB32) == image)
          << "picture " << i << " at " << dpr << "x";
      EXPECT_TRUE(image.size() == pixels(static_cast<Pic>(i)).size() * dpr &&
                  image.devicePixelRatio() == dpr) << "picture " << i << " at " << dpr << "x";
      const QImage art = rendered.Picture(static_cast<Pic>(i));
      EXPECT_TRUE(dpr == 2 || image == art.convertToFormat(QImage::Format_ARGB32)) << i;
    }
  }
  for (int i = 0; i < kObjectCount; ++i) {
    const ObjectInfo& info = Info(static_cast<Obj>(i));
    if (info.picture == Pic::None) continue;
    EXPECT_EQ(pixels(info.picture).size(), QSize(info.rect.width, info.rect.height)) << info.name;
  }
  for (const int size : kIconSizes) EXPECT_EQ(AppIcon().pixmap(size).toImage(), RenderIcon(size));
}

}  // namespace
}  // namespace nautrix
