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

// A label at its designed place; Centre makes it as wide as its text.
QLabel* AddLabel(QWidget* parent, const QString& text, const QRect& design) {
  auto* label = new QLabel(text, parent);
  label->setGeometry(design);
  return label;
}

// Centred where the design centred it.
void Centre(QLabel* label) {
  const int middle = label->geometry().center().x();
  label->adjustSize();
  label->move(middle - label->width() / 2, label->y());
}

}  // namespace

AboutDialog::AboutDialog(Form1& device)
    : DialogFrame(Kind::Framed, 247, 180), form_(device, *this) {
  setWindowTitle(QStringLiteral("Nautrix Simulator"));

  auto* ok = new QPushButton(QStringLiteral("&OK"), this);
  ok->setGeometry(TwipRect(2640, 2295, 975, 345));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] { form_.Command1_Click(); });

  QLabel* labels[] = {
      AddLabel(this, kVersion, TwipRect(615, 30, 2370, 195)),
      AddLabel(this, kAuthor, TwipRect(780, 255, 2085, 210)),
      links_[0] = AddLabel(this, QString::fromStdString(form_.Email.Caption),
                             TwipRect(1095, 495, 1455, 210)),
      links_[1] = AddLabel(this, QString::fromStdString(form_.Homepage.Caption),
                             TwipRect(885, 720, 1890, 210)),
      nullptr, nullptr, nullptr, nullptr};
  auto* frame1 = new QGroupBox(this);
  frame1->setGeometry(TwipRect(90, 945, 3540, 1275));
  frame1->setAccessibleName(QStringLiteral("Thanks"));
  labels[4] = AddLabel(frame1, kThanks, TwipRect(1095, 195, 1245, 210));
  labels[5] = AddLabel(frame1, kThanksFirst, TwipRect(105, 420, 3315, 210));
  labels[6] = links_[2] = AddLabel(frame1, QString::fromStdString(form_.Handbill.Caption),
                                     TwipRect(360, 645, 2700, 210));
  labels[7] = AddLabel(frame1, kThanksLast, TwipRect(120, 975, 3285, 210));
  labels[0]->setFont(BoldFont());
  for (QLabel* link : links_) {
    link->setFont(UnderlinedFont());
    link->setCursor(Qt::PointingHandCursor);
    link->installEventFilter(this);
  }
  // Every line within its frame.
  FitFont([&labels] {
    return std::all_of(std::begin(labels), std::end(labels), [](QLabel* label) {
      return label->sizeHint().width() <= label->parentWidget()->contentsRect().width() - 4;
    });
  });
  for (QLabel* label : labels) Centre(label);
  ShowLinks();
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
