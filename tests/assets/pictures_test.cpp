// The device's artwork and sounds as the program uses them: every picture is
// opaque and exactly its object's size at any pixel ratio, the sprite rows
// follow the device's rule, shared sprites sit on identical backgrounds, and
// the four wave files are what the sound voice can play.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QStringList>
#include <QSvgRenderer>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "shell/qt/picture_book.h"
#include "shell/qt/picture_sources.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

const PictureBook& Book(int dpr) {
  TestApp();
  static std::unique_ptr<PictureBook> books[3];
  if (!books[dpr]) books[dpr] = std::make_unique<PictureBook>(dpr);
  return *books[dpr];
}

QImage Pixels(Pic pic, int dpr) {
  return Book(dpr).Picture(pic).toImage().convertToFormat(QImage::Format_ARGB32);
}

// Images compared without handing gtest whole images to print.
bool Same(const QImage& a, const QImage& b) { return a == b; }

QSize PixelSize(Obj o, int dpr) { return QSize(Info(o).rect.width, Info(o).rect.height) * dpr; }

// The case as it shows with nothing lit on it, cut at an object's place.
QImage UnlitAt(Obj o, int dpr) {
  const Rect r = Info(o).rect;
  return Pixels(Pic::FrontCase, dpr).copy(r.left * dpr, r.top * dpr, r.width * dpr, r.height * dpr);
}

// The pictures each object can show: its design picture, and for the keys,
// digits and diver places the library sprites that are copied onto it.
std::vector<Pic> PicturesShownOn(Obj o) {
  std::vector<Pic> pics;
  if (Info(o).picture != Pic::None) pics.push_back(Info(o).picture);
  auto add = [&](Obj sprite) { pics.push_back(Info(sprite).picture); };
  switch (o) {
    case Obj::GameAButton: case Obj::GameBButton: case Obj::TimeButton:
      add(Button0(0)); add(Button0(1)); break;
    case Obj::LeftButton: case Obj::RightButton:
      add(Button1(0)); add(Button1(1)); break;
    case Obj::AlarmButton: case Obj::ACLButton:
      add(Button2(0)); add(Button2(1)); break;
    case Obj::Logo:
      add(TPLogo(0)); add(TPLogo(1)); break;
    case Obj::HourDigit0: case Obj::HourDigit1: case Obj::MinuteDigit0: case Obj::MinuteDigit1:
      for (int d = 0; d <= 9; ++d) add(Number(d));
      break;
    case Obj::DiverStep0:
      add(OnTheBoat(0)); add(OnTheBoat(1)); break;
    case Obj::Arm:
      add(TempArm(0)); add(TempArm(1)); break;
    case Obj::Legs:
      add(TempLegs(0)); add(TempLegs(1)); break;
    default:
      for (int p = 1; p <= 8; ++p) {
        if (o != DiverStep(p < 5 ? p : 5)) continue;
        for (int k = 0; k < 4; ++k) add(Diver(4 * (p - 1) + k));
      }
  }
  return pics;
}

TEST(Pictures, EveryObjectShowsPicturesOfExactlyItsSizeAtBothRatios) {
  for (int dpr : {1, 2}) {
    for (int i = 0; i < kObjectCount; ++i) {
      const Obj o = static_cast<Obj>(i);
      for (Pic pic : PicturesShownOn(o)) {
        const QPixmap& pixmap = Book(dpr).Picture(pic);
        EXPECT_EQ(pixmap.size(), PixelSize(o, dpr)) << Info(o).name << " at " << dpr << "x";
        EXPECT_EQ(pixmap.devicePixelRatio(), dpr) << Info(o).name;
      }
    }
  }
}

TEST(Pictures, EveryPictureIsOpaque) {
  for (int dpr : {1, 2}) {
    for (int i = 1; i < kPicCount; ++i) {
      const QImage image = Pixels(static_cast<Pic>(i), dpr);
      ASSERT_FALSE(image.isNull()) << "picture " << i;
      int translucent = 0;
      for (int y = 0; y < image.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) translucent += qAlpha(line[x]) != 255;
      }
      EXPECT_EQ(translucent, 0) << "picture " << i << " at " << dpr << "x";
    }
  }
}

TEST(Pictures, EveryNamedFigureExistsInItsSheet) {
  TestApp();
  QSvgRenderer front(QString::fromLatin1(SheetResource(Sheet::Front)));
  QSvgRenderer back(QString::fromLatin1(SheetResource(Sheet::Back)));
  ASSERT_TRUE(front.isValid());
  ASSERT_TRUE(back.isValid());
  EXPECT_TRUE(front.elementExists(QString::fromLatin1(SheetBase(Sheet::Front))));
  EXPECT_TRUE(back.elementExists(QString::fromLatin1(SheetBase(Sheet::Back))));
  for (int i = 1; i < kPicCount; ++i) {
    const PictureSource& source = SourceOf(static_cast<Pic>(i));
    EXPECT_EQ(source.pic, static_cast<Pic>(i));
    if (QLatin1String(source.elements) == QLatin1String(kEveryLcdObject) ||
        QLatin1String(source.elements) == QLatin1String(kBaseWithAlwaysLit)) {
      continue;
    }
    QSvgRenderer& sheet = source.sheet == Sheet::Front ? front : back;
    for (const QString& id : QString::fromLatin1(source.elements).split(' ', Qt::SkipEmptyParts)) {
      EXPECT_TRUE(sheet.elementExists(id)) << "picture " << i << " names a missing figure " << id.toStdString();
    }
  }
}

// A lit segment must look lit, and an always-lit one must already be printed
// into the case, or the case would flash when the window first paints.
TEST(Pictures, LitSegmentsDifferFromTheUnlitCaseAndTheBodyIsPrintedIn) {
  for (int i = Index(Obj::am); i <= Index(Obj::GameType0); ++i) {
    const Obj o = static_cast<Obj>(i);
    if (Info(o).picture == Pic::None) continue;  // the digits: below
    const bool always_lit = o == Obj::Nautrix0 || o == Obj::Nautrix1 || o == Obj::Nautrix2 ||
                            o == Obj::Treasure;
    if (always_lit) {
      EXPECT_TRUE(Same(Pixels(Info(o).picture, 1), UnlitAt(o, 1))) << Info(o).name;
    } else {
      EXPECT_FALSE(Same(Pixels(Info(o).picture, 1), UnlitAt(o, 1))) << Info(o).name;
    }
  }
  for (int d = 0; d <= 9; ++d) EXPECT_FALSE(Same(Pixels(Info(Number(d)).picture, 1), UnlitAt(Obj::HourDigit0, 1)));
  EXPECT_FALSE(Same(Pixels(Pic::ResetScreen, 1), UnlitAt(Obj::ResetScreen, 1)));
}

// One sprite serves several places; it blends in only if the print under all
// of them is the same, pixel for pixel.
TEST(Pictures, SharedSpritesLieOnIdenticalBackgrounds) {
  const std::vector<std::vector<Obj>> shared = {
      {Obj::MinuteDigit1, Obj::MinuteDigit0, Obj::HourDigit1, Obj::HourDigit0},
      {Obj::Remainder1, Obj::Remainder0},
      {Obj::GameAButton, Obj::GameBButton, Obj::TimeButton},
      {Obj::LeftButton, Obj::RightButton},
      {Obj::AlarmButton, Obj::ACLButton},
  };
  for (int dpr : {1, 2}) {
    for (const auto& places : shared) {
      for (Obj o : places) {
        EXPECT_TRUE(Same(UnlitAt(o, dpr), UnlitAt(places[0], dpr)))
            << Info(o).name << " vs " << Info(places[0]).name << " at " << dpr << "x";
      }
    }
  }
}

TEST(Pictures, DiverRowsFollowTheBagAndTipRule) {
  for (int row = 0; row < 8; ++row) {
    const auto sprite = [&](int k) { return Pixels(Info(Diver(4 * row + k)).picture, 1); };
    if (row != 7) {
      EXPECT_FALSE(Same(sprite(0), sprite(2))) << "row " << row << ": the bag must show";
      EXPECT_FALSE(Same(sprite(1), sprite(3))) << "row " << row;
    }
    EXPECT_FALSE(Same(sprite(0), sprite(1))) << "row " << row << ": the tip must show";
    EXPECT_FALSE(Same(sprite(2), sprite(3))) << "row " << row;
  }
  // Position 7 looks as position 5; position 8 shows the bag in all four.
  for (int k = 0; k < 4; ++k) {
    EXPECT_TRUE(Same(Pixels(Info(Diver(24 + k)).picture, 2), Pixels(Info(Diver(16 + k)).picture, 2)));
  }
  EXPECT_TRUE(Same(Pixels(Info(Diver(30)).picture, 2), Pixels(Info(Diver(28)).picture, 2)));
  EXPECT_TRUE(Same(Pixels(Info(Diver(31)).picture, 2), Pixels(Info(Diver(29)).picture, 2)));
  EXPECT_FALSE(Same(Pixels(Info(Diver(20)).picture, 1), Pixels(Info(Diver(16)).picture, 1)))
      << "reaching into the chest must differ from standing at it";
}

TEST(Pictures, KeysLookPlainlyDifferentWhenDown) {
  const Obj keys[][2] = {{Button0(0), Button0(1)}, {Button1(0), Button1(1)},
                         {Button2(0), Button2(1)}, {TPLogo(0), TPLogo(1)}};
  for (const auto& key : keys) {
    const QImage up = Pixels(Info(key[0]).picture, 1);
    const QImage down = Pixels(Info(key[1]).picture, 1);
    int changed = 0;
    for (int y = 0; y < up.height(); ++y) {
      for (int x = 0; x < up.width(); ++x) changed += up.pixel(x, y) != down.pixel(x, y);
    }
    EXPECT_GT(changed, up.width() * up.height() / 4) << Info(key[0]).name;
  }
  for (int a = 0; a <= 9; ++a) {
    for (int b = a + 1; b <= 9; ++b) {
      EXPECT_FALSE(Same(Pixels(Info(Number(a)).picture, 1), Pixels(Info(Number(b)).picture, 1))) << a << b;
    }
  }
}

TEST(Pictures, IconAndLeafletPages) {
  TestApp();
  const QIcon icon = AppIcon();
  for (int size : {16, 32, 48, 256}) {
    EXPECT_EQ(icon.pixmap(size, size).size(), QSize(size, size));
  }
  QImage previous;
  for (int page = 1; page <= 9; ++page) {
    for (int dpr : {1, 2}) {
      const QImage image = RenderPage(page, dpr);
      EXPECT_EQ(image.size(), QSize(413, 250) * dpr) << "page " << page;
      EXPECT_EQ(image.devicePixelRatio(), dpr);
      EXPECT_FALSE(image.hasAlphaChannel());
      int ink = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ink += qGray(image.pixel(x, y)) < 128;
      }
      EXPECT_GT(ink, 500 * dpr * dpr) << "page " << page << " is (nearly) blank";
    }
    const QImage image = RenderPage(page, 1);
    EXPECT_NE(image, previous) << "page " << page;
    previous = image;
  }
}

// ---- the wave files beside the program --------------------------------------

struct Wave {
  bool ok = false;
  int format = 0, channels = 0, rate = 0, bits = 0;
  std::vector<int16_t> samples;
  double Ms() const { return rate ? 1000.0 * samples.size() / rate : 0; }
};

uint32_t Le(const QByteArray& b, int at, int n) {
  uint32_t v = 0;
  for (int i = n - 1; i >= 0; --i) v = v << 8 | static_cast<uint8_t>(b[at + i]);
  return v;
}

Wave ReadWave(const QString& name) {
  TestApp();
  // The tests lie one folder below the program, which the waves lie beside.
  const QString dir = QCoreApplication::applicationDirPath();
  QFile file(dir + "/../" + name);
  if (!file.exists()) file.setFileName(dir + "/" + name);
  Wave w;
  if (!file.open(QIODevice::ReadOnly)) return w;
  const QByteArray b = file.readAll();
  if (b.size() < 44 || b.left(4) != "RIFF" || b.mid(8, 4) != "WAVE") return w;
  int at = 12;
  while (at + 8 <= b.size()) {
    const QByteArray id = b.mid(at, 4);
    const int size = static_cast<int>(Le(b, at + 4, 4));
    if (id == "fmt ") {
      w.format = Le(b, at + 8, 2);
      w.channels = Le(b, at + 10, 2);
      w.rate = Le(b, at + 12, 4);
      w.bits = Le(b, at + 22, 2);
    } else if (id == "data") {
      for (int i = 0; i + 1 < size && at + 8 + i + 1 < b.size(); i += 2) {
        w.samples.push_back(static_cast<int16_t>(Le(b, at + 8 + i, 2)));
      }
      w.ok = true;
    }
    at += 8 + size + (size & 1);
  }
  return w;
}

TEST(Beeps, AreShortMonoPcmWavesOfTheirLength) {
  struct Expect {
    const char* file;
    double min_ms, max_ms;
  };
  // Beep0 sounds on every tentacle beat, which can be as short as 90 ms.
  const Expect expected[] = {{"Beep0.wav", 25, 50},
                             {"Beep1.wav", 40, 90},
                             {"Beep2.wav", 200, 320},
                             {"Beep3.wav", 150, 400}};
  for (const Expect& e : expected) {
    const Wave w = ReadWave(e.file);
    ASSERT_TRUE(w.ok) << e.file << " is missing or no wave";
    EXPECT_EQ(w.format, 1) << e.file << ": PCM";
    EXPECT_EQ(w.channels, 1) << e.file;
    EXPECT_EQ(w.bits, 16) << e.file;
    EXPECT_TRUE(w.rate == 22050 || w.rate == 44100) << e.file;
    EXPECT_GE(w.Ms(), e.min_ms) << e.file;
    EXPECT_LE(w.Ms(), e.max_ms) << e.file;
    // Soft ends (no click when a beep starts or is cut off by the next), and
    // a level that is clearly heard but never clipped.
    int peak = 0;
    for (int16_t s : w.samples) peak = std::max(peak, std::abs(static_cast<int>(s)));
    EXPECT_LT(std::abs(w.samples.front()), 300) << e.file;
    EXPECT_LT(std::abs(w.samples.back()), 300) << e.file;
    EXPECT_GT(peak, 8000) << e.file;
    EXPECT_LT(peak, 32000) << e.file;
  }
}

}  // namespace
}  // namespace nautrix
