#include "dialogs/qt/about_dialog.h"

#include <QGroupBox>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>
#include <iterator>

#include "shell/input/key_codes.h"

namespace nautrix {
namespace {

// The credits; the version line is the device program's own.
constexpr char kVersion[] = "Nautrix 2.5 (May 17, 2000)";
constexpr char kAuthor[] = "Written by the Nautrix simulator team";
constexpr char kThanks[] = "Special thanks to";
constexpr char kThanksFirst[] = "everyone who kept a Nautrix and its leaflet,";
constexpr char kThanksLast[] = "and all who played the first simulators";

}  // namespace

AboutDialog::AboutDialog(Form1& device)
    : DialogFrame(Kind::Framed, 247, 180), form_(device, *this) {
  setWindowTitle(QStringLiteral("Nautrix Simulator"));

  ok_ = new QPushButton(QStringLiteral("&OK"), this);
  ok_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, [this] { form_.Command1_Click(); });
  frame1_ = new QGroupBox(this);
  frame1_->setAccessibleName(QStringLiteral("Thanks"));
  const QString texts[] = {kVersion,
                           kAuthor,
                           QString::fromStdString(form_.Email.Caption),
                           QString::fromStdString(form_.Homepage.Caption),
                           kThanks,
                           kThanksFirst,
                           QString::fromStdString(form_.Handbill.Caption),
                           kThanksLast};
  for (int i = 0; i < 8; ++i) labels_[i] = new QLabel(texts[i], i < 4 ? static_cast<QWidget*>(this) : frame1_);
  links_ = {labels_[2], labels_[3], labels_[6]};
  labels_[0]->setFont(BoldFont());
  for (QLabel* link : links_) {
    link->setFont(UnderlinedFont());
    link->setCursor(Qt::PointingHandCursor);
    link->installEventFilter(this);
  }
  ArrangeToFit();
  ShowLinks();
}

// Each label as wide as its text, centred where the design centred it.
void AboutDialog::Arrange() {
  static constexpr int kDesign[8][4] = {
      {615, 30, 2370, 195},  {780, 255, 2085, 210},  {1095, 495, 1455, 210},
      {885, 720, 1890, 210}, {1095, 195, 1245, 210}, {105, 420, 3315, 210},
      {360, 645, 2700, 210}, {120, 975, 3285, 210}};
  ok_->setGeometry(TwipRect(2640, 2295, 975, 345));
  frame1_->setGeometry(TwipRect(90, 945, 3540, 1275));
  for (int i = 0; i < 8; ++i) {
    const auto& d = kDesign[i];
    const QRect design = TwipRect(d[0], d[1], d[2], d[3]);
    const QSize text = labels_[i]->sizeHint();
    labels_[i]->setGeometry(design.center().x() + 1 - (text.width() + 1) / 2, design.y(),
                            text.width(), std::max(text.height(), design.height()));
  }
}

// A link's press and release, with any button; the release comes to the
// link wherever the pointer is then. The second press of a double click
// comes as the double click, which the links do not take.
bool AboutDialog::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::MouseButtonPress;
  const bool release = event->type() == QEvent::MouseButtonRelease;
  if (event->type() == QEvent::MouseButtonDblClick) return true;
  if (!press && !release) return DialogFrame::eventFilter(watched, event);
  const auto* mouse = static_cast<QMouseEvent*>(event);
  const int button = ButtonCode(mouse->button());
  const int shift = ShiftState(mouse->modifiers());
  const QPointF at = mouse->position() * kTwipsPerPixel;
  using Handler = void (Form2::*)(int, int, float, float);
  static constexpr Handler kDown[] = {&Form2::Email_MouseDown, &Form2::Homepage_MouseDown,
                                      &Form2::Handbill_MouseDown};
  static constexpr Handler kUp[] = {&Form2::Email_MouseUp, &Form2::Homepage_MouseUp,
                                    &Form2::Handbill_MouseUp};
  for (int i = 0; i < 3; ++i) {
    if (watched != links_[i]) continue;
    (form_.*(press ? kDown : kUp)[i])(button, shift, at.x(), at.y());
    ShowLinks();
    return true;
  }
  return DialogFrame::eventFilter(watched, event);
}

void AboutDialog::ShowLinks() {
  const LinkLabel* links[] = {&form_.Email, &form_.Homepage, &form_.Handbill};
  for (int i = 0; i < 3; ++i) {
    const Colour c = links[i]->ForeColor;
    QPalette palette = links_[i]->palette();
    palette.setColor(QPalette::WindowText, QColor(c.red, c.green, c.blue));
    links_[i]->setPalette(palette);
  }
}

}  // namespace nautrix
