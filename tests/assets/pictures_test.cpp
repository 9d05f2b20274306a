// The device's artwork and sounds as the program uses them: every picture is
// opaque and exactly the size of each object that shows it at both pixel
// ratios, lit segments show, the diver's rows follow the device's rule, and
// the four wave files are short mono PCM of their lengths.
#include <gtest/gtest.h>

#include <QFile>
#include <memory>

#include "shell/qt/built_pictures.h"
#include "shell/qt/wave_decoder.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

QImage Pixels(Pic pic, int dpr = 1) {
  TestApp();
  static std::unique_ptr<PictureBook> books[3];
  if (!books[dpr]) books[dpr] = PicturesFor(dpr);
  return books[dpr]->Picture(pic).convertToFormat(QImage::Format_ARGB32);
}
QImage Pixels(Obj sprite) { return Pixels(Info(sprite).picture); }

// The pictures an object can show: its own, and the library sprites the
// device copies onto it.
std::vector<Pic> PicturesOf(Obj o) {
  std::vector<Pic> pics;
  if (Info(o).picture != Pic::None) pics.push_back(Info(o).picture);
  const auto on = [&](std::initializer_list<Obj> places, std::initializer_list<Obj> sprites) {
    if (std::find(places.begin(), places.end(), o) == places.end()) return;
    for (Obj s : sprites) pics.push_back(Info(s).picture);
  };
  on({Obj::GameAButton, Obj::GameBButton, Obj::TimeButton}, {Button0(0), Button0(1)});
  on({Obj::LeftButton, Obj::RightButton}, {Button1(0), Button1(1)});
  on({Obj::AlarmButton, Obj::ACLButton}, {Button2(0), Button2(1)});
  on({Obj::Logo}, {TPLogo(0), TPLogo(1)});
  on({DiverStep(0)}, {OnTheBoat(0), OnTheBoat(1)});
  on({Obj::Arm}, {TempArm(0), TempArm(1)});
  on({Obj::Legs}, {TempLegs(0), TempLegs(1)});
  for (int d = 0; d <= 9; ++d) {
    on({HourDigit(0), HourDigit(1), MinuteDigit(0), MinuteDigit(1)}, {Number(d)});
  }
  // Positions 1 to 4 have a place each; 5 to 8 share the chest's.
  for (int n = 0; n < 32; ++n) on({DiverStep(std::min(n / 4 + 1, 5))}, {Diver(n)});
  return pics;
}

// Everything the window draws covers its rectangle exactly, with no holes,
// and what one object can show never looks the same twice (save the chest's
// diver, below).
TEST(Pictures, OpaqueAndOfEachObjectsSizeAtBothRatiosAndDistinctOnEachObject) {
  for (int dpr : {1, 2}) {
    for (int i = 1; i < kPicCount; ++i) {
      const QImage image = Pixels(static_cast<Pic>(i), dpr);
      int translucent = image.isNull() ? 1 : 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) translucent += qAlpha(image.pixel(x, y)) != 255;
      }
      EXPECT_EQ(translucent, 0) << "picture " << i << " at " << dpr << "x";
    }
    for (int i = 0; i < kObjectCount; ++i) {
      const Obj o = static_cast<Obj>(i);
      const std::vector<Pic> pics = PicturesOf(o);
      EXPECT_FALSE(pics.empty()) << Info(o).name;
      for (size_t a = 0; a < pics.size(); ++a) {
        const QImage image = Pixels(pics[a], dpr);
        const QSize size(Info(o).rect.width * dpr, Info(o).rect.height * dpr);
        EXPECT_TRUE(image.size() == size && image.devicePixelRatio() == dpr) << Info(o).name << dpr;
        for (size_t b = a + 1; b < pics.size() && o != DiverStep(5); ++b) {
          if (pics[a] != pics[b]) {
            EXPECT_NE(image, Pixels(pics[b], dpr)) << Info(o).name << b;
          }
        }
      }
    }
  }
}

// The program shows at 100 % what the build rendered: the same pictures and
// icon that the art renders now.
TEST(Pictures, BuiltAtTheUsualRatioAsTheArtRendersThem) {
  TestApp();
  const PictureBook rendered(1);
  for (int i = 1; i < kPicCount; ++i) {
    const Pic pic = static_cast<Pic>(i);
    EXPECT_EQ(Pixels(pic), rendered.Picture(pic).convertToFormat(QImage::Format_ARGB32)) << i;
  }
  const QIcon icon = AppIcon();
  for (const int size : kIconSizes)
    EXPECT_EQ(icon.pixmap(size).toImage(), RenderIcon(size)) << size;
}

// A lit segment must look lit; an always-lit one must already be printed
// into the case, or the case would flash when the window first paints.
TEST(Pictures, LitSegmentsShowOnTheCaseAndTheBodyIsPrintedIn) {
  const QImage unlit = Pixels(Pic::FrontCase);
  for (int i = Index(Obj::ResetScreen); i <= Index(Obj::GameType0); ++i) {
    const Obj o = static_cast<Obj>(i);
    if (Info(o).picture == Pic::None) continue;  // the digits, shown by sprites
    const Rect r = Info(o).rect;
    const bool printed = Pixels(Info(o).picture) == unlit.copy(r.left, r.top, r.width, r.height);
    const bool always_lit =
        o == Nautrix(0) || o == Nautrix(1) || o == Nautrix(2) || o == Obj::Treasure;
    EXPECT_EQ(printed, always_lit) << Info(o).name;
  }
}

// Each row is one position: the bag shows at offsets 2 and 3 and the tip of
// the tentacle over the diver at 1 and 3. Position 7 looks as position 5,
// and position 8 holds the bag in all four.
TEST(Pictures, DiverRowsFollowTheBagAndTipRule) {
  for (int row = 0; row < 8; ++row) {
    const auto diver = [&](int k) { return Pixels(Diver(4 * row + k)); };
    EXPECT_TRUE(diver(0) != diver(1) && diver(2) != diver(3)) << "row " << row << ": the tip";
    EXPECT_EQ(diver(0) != diver(2) && diver(1) != diver(3), row != 7) << "row " << row << ": bag";
    bool as_position_5 = true;
    for (int k = 0; k < 4; ++k) as_position_5 &= diver(k) == Pixels(Diver(16 + k));
    EXPECT_EQ(as_position_5, row == 4 || row == 6) << "row " << row;
  }
  EXPECT_TRUE(Pixels(Diver(30)) == Pixels(Diver(28)) && Pixels(Diver(31)) == Pixels(Diver(29)));
}

// The beeps lie beside the program (one folder above the tests): waves
// the voice reads, each as long as its use allows, with soft ends (no click
// when the next beep cuts one off) and a level heard but never clipped.
TEST(Beeps, AreShortMonoPcmWavesOfTheirLength) {
  const struct { const char* file; size_t min_ms, max_ms; } kBeeps[] = {
      {"Beep0.wav", 25, 50},  // on every tentacle beat, as short as 90 ms
      {"Beep1.wav", 40, 90}, {"Beep2.wav", 200, 320}, {"Beep3.wav", 150, 400}};
  const QString folder = (TestApp(), QCoreApplication::applicationDirPath() + "/../");
  for (const auto& beep : kBeeps) {
    const QByteArray b = FileText(folder + beep.file);
    const std::optional<Samples> s =  // 44 samples a millisecond
        DecodeWave(reinterpret_cast<const uint8_t*>(b.constData()), b.size(), 44000);
    ASSERT_TRUE(s) << beep.file;
    EXPECT_TRUE(s->size() >= beep.min_ms * 44 && s->size() <= beep.max_ms * 44) << beep.file;
    const auto [low, high] = std::minmax_element(s->begin(), s->end());
    const int peak = std::max(-*low, int{*high});
    EXPECT_TRUE(peak > 8000 && peak < 32000) << beep.file << ": peak " << peak;
    EXPECT_TRUE(std::abs(s->front()) < 300 && std::abs(s->back()) < 300) << beep.file;
  }
}

}  // namespace
}  // namespace nautrix
