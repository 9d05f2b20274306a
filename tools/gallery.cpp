// Review renderer: draws the device in a few typical scenes, every picture
// of the book on one sheet, the leaflet's pages and the icon, as PNGs.
//
//   nautrix_gallery [OUTPUT_FOLDER]        (default: gallery/ beside it)
//   nautrix_gallery --icons FOLDER         icons as hicolor/NxN/apps/nautrix.png
//
// Scenes start from a loaded device (keys up, the form's own figures) and are
// set up straight on the screen objects and the readout; each is drawn at 1x and 2x, and the 1x one once more enlarged
// three times without smoothing, to judge the pixels.
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "device/form1.h"
#include "shell/pictures/device_painter.h"
#include "shell/pictures/built_pictures.h"
#include "tests/support/fake_platform.h"

using namespace nautrix;

namespace {

constexpr int kWidth = 333;
constexpr int kHeight = 198;

// A score on the readout, as a game shows it after the first tick's time.
void Score(Form1& f, int score) {
  f.ShowTime("120000 AM");
  f.ShowScore(score);
}

void TentacleOut(Form1& f, int t, int length) {
  for (int k = 0; k < length; ++k) f.Show(Tentacle(t, k));
}

// Diver at position p (1..8) with the sprite rule of the device.
void DiverAt(Form1& f, int p, bool bag, bool tip) {
  f.Hide(DiverStep(0));
  const Obj step = DiverStep(p < 5 ? p : 5);
  f.CopyPicture(Diver(4 * (p - 1) + (bag ? 2 : 0) + (tip ? 1 : 0)), step);
  f.Show(step);
}

struct Scene {
  const char* name;
  std::function<void(Form1&)> setup;
  bool back = false;
};

std::vector<Scene> Scenes() {
  return {
      {"lit", [](Form1& f) {
         for (int i = Index(Obj::GameType0); i >= Index(Obj::am); --i) {
           const Obj o = static_cast<Obj>(i);
           if (Info(o).picture == Pic::None) f.CopyPicture(Number(8), o);
           f.Show(o);
         }
       }},
      {"idle", [](Form1& f) {
         f.ShowTime("100800 AM");
         f.Show(Obj::Note);
         TentacleOut(f, 2, 2);
         TentacleOut(f, 4, 1);
       }},
      {"game", [](Form1& f) {
         f.Show(GameType(0));
         Score(f, 37);
         TentacleOut(f, 0, 2);
         TentacleOut(f, 2, 3);
         TentacleOut(f, 3, 4);
         TentacleOut(f, 4, 1);
         DiverAt(f, 3, true, false);
         f.Hide(Obj::Remainder0);
       }},
      {"walk", [](Form1& f) {
         f.Show(GameType(1));
         Score(f, 152);
         TentacleOut(f, 1, 4);
         TentacleOut(f, 4, 3);
         DiverAt(f, 2, false, true);
       }},
      {"chest", [](Form1& f) {
         f.Show(GameType(0));
         Score(f, 8);
         TentacleOut(f, 0, 3);
         TentacleOut(f, 3, 2);
         DiverAt(f, 6, false, false);
       }},
      {"capture", [](Form1& f) {
         f.Show(GameType(1));
         Score(f, 241);
         TentacleOut(f, 2, 2);
         TentacleOut(f, 3, 2);
         TentacleOut(f, 0, 1);
         f.Show(Obj::MissPic);
         f.CopyPicture(TempArm(1), Obj::Arm);
         f.CopyPicture(TempLegs(1), Obj::Legs);
         f.Show(Obj::Arm);
         f.Show(Obj::Legs);
         f.Hide(Obj::Remainder0);
         f.Hide(Obj::Remainder1);
       }},
      {"alarm", [](Form1& f) {
         f.ShowTime("073000 AM");
         f.Show(Obj::Note);
         f.Show(Alarm(0));
         f.Show(Alarm(1));
         f.Show(Obj::BabyNautrix);
         f.CopyPicture(OnTheBoat(1), DiverStep(0));
       }},
      {"keys-down", [](Form1& f) {
         f.CopyPicture(Button0(1), Obj::GameAButton);
         f.CopyPicture(Button0(1), Obj::GameBButton);
         f.CopyPicture(Button0(1), Obj::TimeButton);
         f.CopyPicture(Button1(1), Obj::LeftButton);
         f.CopyPicture(Button1(1), Obj::RightButton);
         f.CopyPicture(Button2(1), Obj::AlarmButton);
         f.CopyPicture(Button2(1), Obj::ACLButton);
         f.CopyPicture(TPLogo(1), Obj::Logo);
         f.Show(Obj::ResetScreen);
       }},
      {"back", [](Form1&) {}, true},
  };
}

bool Save(const QImage& image, const QString& path) {
  if (image.save(path)) return true;
  std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
  return false;
}

QImage Enlarged(const QImage& image, int factor) {
  return image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QImage DrawScene(const Scene& scene, const PictureBook& book) {
  const qreal dpr = book.devicePixelRatio();
  QImage image(QSize(kWidth, kHeight) * dpr, QImage::Format_RGB32);
  image.setDevicePixelRatio(dpr);
  image.fill(Qt::magenta);  // a hole in the art would show
  QPainter painter(&image);
  if (scene.back) {
    painter.drawImage(0, 0, book.Picture(Pic::BackCase));
  } else {
    FakePlatform fake;
    Form1 form(fake);
    form.Form_Load();
    scene.setup(form);
    PaintDevice(painter, form, book, QRect(0, 0, kWidth, kHeight));
  }
  return image;
}

// Every picture of the book, enlarged, in a grid with its name.
QImage PictureSheet(const PictureBook& book, int zoom) {
  // Cells hold the largest sprite (30 x 26 logical) at the book's ratio times
  // the zoom, with room for the name.
  const int scale = static_cast<int>(book.devicePixelRatio()) * zoom;
  const int cell_w = 44 * scale + 40, cell_h = 36 * scale, cols = 8;
  std::vector<Pic> pics;
  for (int i = 1; i < kPicCount; ++i) {
    const Pic pic = static_cast<Pic>(i);
    if (pic != Pic::FrontCase && pic != Pic::BackCase && pic != Pic::ResetScreen) pics.push_back(pic);
  }
  const int rows = (static_cast<int>(pics.size()) + cols - 1) / cols;
  QImage sheet(cols * cell_w, rows * (cell_h + 12), QImage::Format_RGB32);
  sheet.fill(QColor(60, 60, 60));
  QPainter painter(&sheet);
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(10);
  painter.setFont(font);
  painter.setPen(Qt::white);
  for (int n = 0; n < static_cast<int>(pics.size()); ++n) {
    const int x = n % cols * cell_w, y = n / cols * (cell_h + 12);
    const QImage& pixels = book.Picture(pics[n]);
    QImage big = Enlarged(pixels, zoom);
    big.setDevicePixelRatio(1);
    painter.drawImage(x + 2, y + 12, big);
    // Name the picture by the first object that shows it by design.
    QString name = QString::number(static_cast<int>(pics[n]));
    for (int i = 0; i < kObjectCount; ++i) {
      if (Info(static_cast<Obj>(i)).picture == pics[n]) {
        name = QString::fromLatin1(Info(static_cast<Obj>(i)).name);
        if (!InClientArea(static_cast<Obj>(i))) break;
      }
    }
    painter.drawText(x + 2, y + 10, name);
  }
  return sheet;
}

int WriteIcons(const QString& folder) {
  const QIcon icon = AppIcon();
  for (int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const QString dir = QStringLiteral("%1/hicolor/%2x%2/apps").arg(folder).arg(size);
    QDir().mkpath(dir);
    if (!Save(icon.pixmap(size, size).toImage(), dir + QStringLiteral("/nautrix.png"))) return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  const QStringList args = app.arguments();
  if (args.size() == 3 && args[1] == QLatin1String("--icons")) return WriteIcons(args[2]);
  const QString out = args.size() > 1 ? args[1] : app.applicationDirPath() + QStringLiteral("/gallery");
  QDir().mkpath(out);
  int failures = 0;
  for (int dpr : {1, 2}) {
    const PictureBook book(dpr);
    for (const Scene& scene : Scenes()) {
      const QImage image = DrawScene(scene, book);
      const QString base = QStringLiteral("%1/%2_%3x").arg(out, QLatin1String(scene.name)).arg(dpr);
      failures += !Save(image, base + QStringLiteral(".png"));
      if (dpr == 1) failures += !Save(Enlarged(image, 3), base + QStringLiteral("_zoom3.png"));
    }
    failures += !Save(PictureSheet(book, dpr == 1 ? 4 : 2),
                      QStringLiteral("%1/pictures_%2x.png").arg(out).arg(dpr));
    for (int page = 1; page <= 9; ++page) {
      failures += !Save(RenderPage(page, dpr),
                        QStringLiteral("%1/page%2_%3x.png").arg(out).arg(page).arg(dpr));
    }
  }
  const QIcon icon = AppIcon();
  for (int size : {16, 32, 64, 256}) {
    failures += !Save(icon.pixmap(size, size).toImage(),
                      QStringLiteral("%1/icon_%2.png").arg(out).arg(size));
  }
  std::printf("gallery written to %s\n", qPrintable(out));
  return failures == 0 ? 0 : 1;
}
