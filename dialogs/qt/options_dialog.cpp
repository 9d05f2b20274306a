#include "dialogs/qt/options_dialog.h"

#include <QGroupBox>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <algorithm>

namespace nautrix {
namespace {

// Design rows of the speed frame, in pixels: the bars' left end and length,
// and the step from one bar to the next.
constexpr int kBarLeft = 87, kBarWidth = 328, kBarHeight = 17, kRowStep = 22;

// A speed bar that shows whenever it has the focus, however it came: the
// user steers the focused bar with the arrows, Home, End and the page keys.
class SpeedBar : public QScrollBar {
 public:
  explicit SpeedBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
    setRange(0, 440);
    // One step for the arrows and the trough alike.
    setSingleStep(1);
    setPageStep(1);
    setFocusPolicy(Qt::StrongFocus);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect();
    focus.state |= QStyle::State_KeyboardFocusChange;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }
};

template <typename T>
T* Add(QWidget* parent, const QString& text, const QRect& place) {
  auto* widget = new T(text, parent);
  widget->setGeometry(place);
  return widget;
}

// A button of a frame as wide as its caption needs, within the frame.
void FitWidth(QWidget* button) {
  const int room = button->parentWidget()->contentsRect().right() - button->x();
  button->resize(std::clamp(button->sizeHint().width(), button->width(), room), button->height());
}

}  // namespace

OptionsDialog::OptionsDialog(Form1& device)
    : DialogFrame(Kind::Framed, 438, 212),
      form_(device, *this),
      speeds_{&form_.HScroll1, &form_.HScroll2, &form_.HScroll3} {
  setWindowTitle(QStringLiteral("Nautrix Options"));

  frame1_ = Add<QGroupBox>(this, QStringLiteral("S&peed"), TwipRect(75, 45, 6405, 1500));
  for (int i = 0; i < 3; ++i) {
    auto* bar = new SpeedBar(frame1_);
    ScrollBar& speed = *speeds_[i];
    connect(bar, &QScrollBar::sliderMoved, this, [this, &speed](int value) {
      form_.DragThumb(speed, value);
      ShowControls();
    });
    connect(bar, &QScrollBar::sliderReleased, this, [this, &speed] {
      form_.ReleaseThumb(speed);
      ShowControls();
    });
    // The thumb's own steps are told by sliderMoved.
    connect(bar, &QScrollBar::valueChanged, this, [this, bar, &speed](int value) {
      if (bar->isSliderDown()) return;
      form_.SetValue(speed, value);
      ShowControls();
    });
    bars_[i] = bar;
  }
  bars_[0]->setAccessibleName(QStringLiteral("Game A speed"));
  bars_[1]->setAccessibleName(QStringLiteral("Game B speed"));
  bars_[2]->setAccessibleName(QStringLiteral("Diver scenes speed"));
  const Label* captions[] = {&form_.GameASpeed, &form_.GameBSpeed, &form_.DiverSpeed};
  for (int i = 0; i < 3; ++i)
    speed_labels_[i] = new QLabel(QString::fromStdString(captions[i]->Caption), frame1_);
  slow_ = new QLabel(QStringLiteral("Slow"), frame1_);
  fast_ = new QLabel(QStringLiteral("Fast"), frame1_);

  auto* frame2 = Add<QGroupBox>(this, QStringLiteral("&Sound"), TwipRect(75, 1605, 1035, 1050));
  sound_on_ = Add<QRadioButton>(frame2, QStringLiteral("On"), TwipRect(105, 360, 555, 210));
  sound_off_ = Add<QRadioButton>(frame2, QStringLiteral("Off"), TwipRect(120, 675, 555, 210));
  sound_on_->setAccessibleName(QStringLiteral("Sound on"));
  sound_off_->setAccessibleName(QStringLiteral("Sound off"));
  // The option that comes on has the say; the other goes off by its Click.
  for (QRadioButton* option : {sound_on_, sound_off_}) {
    OptionButton& value = option == sound_on_ ? form_.SoundOn : form_.SoundOff;
    connect(option, &QRadioButton::toggled, this, [this, &value](bool on) {
      if (!on) return;
      form_.SetValue(value, true);
      ShowControls();
    });
  }

  auto* frame3 = Add<QGroupBox>(this, QStringLiteral("&Other"), TwipRect(1260, 1605, 5220, 1050));
  check1_ = Add<QCheckBox>(
      frame3, QStringLiteral("&Automatically show main window when alarm time is reached"),
      TwipRect(135, 300, 4695, 315));
  check2_ = Add<QCheckBox>(frame3, QStringLiteral("Always on &top"), TwipRect(135, 630, 1365, 315));
  for (QCheckBox* box : {check1_, check2_}) {
    CheckBox& value = box == check1_ ? form_.Check1 : form_.Check2;
    connect(box, &QCheckBox::toggled, this, [this, &value](bool on) {
      form_.SetValue(value, on ? 1 : 0);
      ShowControls();
    });
  }

  auto* ok = Add<QPushButton>(this, QStringLiteral("&OK"), TwipRect(2220, 2745, 975, 345));
  auto* cancel = Add<QPushButton>(this, QStringLiteral("&Cancel"), TwipRect(3300, 2745, 975, 345));
  apply_ = Add<QPushButton>(this, QStringLiteral("&Apply"), TwipRect(4395, 2745, 975, 345));
  auto* defaults = Add<QPushButton>(this, QStringLiteral("&Default"), TwipRect(5490, 2745, 975, 345));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] { form_.Command1_Click(); });
  connect(cancel, &QPushButton::clicked, this, [this] { form_.Command2_Click(); });
  connect(apply_, &QPushButton::clicked, this, [this] {
    form_.Command3_Click();
    ShowControls();
  });
  connect(defaults, &QPushButton::clicked, this, [this] {
    form_.Command4_Click();
    ShowControls();
  });

  QWidget* tab_order[] = {bars_[0], bars_[1], bars_[2], sound_on_, sound_off_, check1_,
                          check2_,  ok,       cancel,   apply_,    defaults};
  for (size_t i = 1; i < std::size(tab_order); ++i) setTabOrder(tab_order[i - 1], tab_order[i]);

  // The widest caption of the bars' labels must end before the bars, the
  // long check box within its frame.
  FitFont([this] {
    check1_->adjustSize();
    return check1_->x() + check1_->width() <= check1_->parentWidget()->contentsRect().right() &&
           QFontMetrics(font()).horizontalAdvance(QStringLiteral("Game B (441)")) <
               kBarLeft - TwipRect(120, 0, 0, 0).left() - 2;
  });
  for (QWidget* button : {static_cast<QWidget*>(sound_on_), static_cast<QWidget*>(sound_off_),
                          static_cast<QWidget*>(check1_), static_cast<QWidget*>(check2_)})
    FitWidth(button);
  PlaceSpeedRows();
}

// "Slow" and "Fast" stand over the bars' ends below the frame's caption,
// wherever the desktop's style draws the frame's line; then the three rows,
// each label level with its bar.
void OptionsDialog::PlaceSpeedRows() {
  slow_->adjustSize();
  fast_->adjustSize();
  const int heads_top = std::max(TwipRect(0, 150, 0, 0).top(), frame1_->contentsRect().top());
  slow_->move(kBarLeft, heads_top);
  fast_->move(kBarLeft + kBarWidth - fast_->width(), heads_top);
  const int first_bar = std::max(TwipRect(0, 435, 0, 0).top(), heads_top + slow_->height());
  const int label_lefts[] = {TwipRect(120, 0, 0, 0).left(), TwipRect(120, 0, 0, 0).left(),
                             TwipRect(135, 0, 0, 0).left()};
  for (int i = 0; i < 3; ++i) {
    const int top = first_bar + i * kRowStep;
    bars_[i]->setGeometry(kBarLeft, top, kBarWidth, kBarHeight);
    speed_labels_[i]->adjustSize();
    speed_labels_[i]->move(label_lefts[i], top + (kBarHeight - speed_labels_[i]->height()) / 2);
  }
}

void OptionsDialog::Load() {
  form_.Form_Load();
  ShowControls();
}

void OptionsDialog::reject() { form_.Command2_Click(); }

void OptionsDialog::ShowControls() {
  for (int i = 0; i < 3; ++i) {
    const QSignalBlocker quiet(bars_[i]);
    bars_[i]->setValue(speeds_[i]->Value);
  }
  const Label* captions[] = {&form_.GameASpeed, &form_.GameBSpeed, &form_.DiverSpeed};
  for (int i = 0; i < 3; ++i) {
    speed_labels_[i]->setText(QString::fromStdString(captions[i]->Caption));
    speed_labels_[i]->adjustSize();
  }
  {
    const QSignalBlocker quiet_on(sound_on_), quiet_off(sound_off_);
    sound_on_->setChecked(form_.SoundOn.Value);
    sound_off_->setChecked(form_.SoundOff.Value);
  }
  const QSignalBlocker quiet1(check1_), quiet2(check2_);
  check1_->setChecked(form_.Check1.Value == 1);
  check2_->setChecked(form_.Check2.Value == 1);
  apply_->setEnabled(form_.Command3.Enabled);
}

}  // namespace nautrix
