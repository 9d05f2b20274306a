#include "dialogs/qt/options_dialog.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <algorithm>

namespace nautrix {
namespace {

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
  // The arrows move the thumb the way they point, as on any horizontal bar;
  // a scroll bar of Qt's turns Left and Right round by default, and turning
  // its controls round as a whole would turn Up, Down and the page keys.
  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key();
    if (key != Qt::Key_Left && key != Qt::Key_Right) return QScrollBar::keyPressEvent(event);
    const bool toward_min = (key == Qt::Key_Left) != isRightToLeft();
    triggerAction(toward_min ? SliderSingleStepSub : SliderSingleStepAdd);
    event->accept();
  }
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

// A box of a frame as wide as its caption needs, within the frame, and as
// tall as its mark needs, about its designed middle.
void FitToCaption(QWidget* button, const QRect& design) {
  const int room = button->parentWidget()->contentsRect().right() + 1 - design.x();
  const int height = std::max(design.height(), button->sizeHint().height());
  button->setGeometry(design.x(), design.center().y() + 1 - (height + 1) / 2,
                      std::clamp(button->sizeHint().width(), design.width(), room), height);
}

}  // namespace

OptionsDialog::OptionsDialog(Form1& device)
    : DialogFrame(Kind::Framed, 438, 212),
      form_(device, *this),
      speeds_{&form_.HScroll1, &form_.HScroll2, &form_.HScroll3} {
  setWindowTitle(QStringLiteral("Nautrix Options"));

  frame1_ = new QGroupBox(QStringLiteral("S&peed"), this);
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

  frame2_ = new QGroupBox(QStringLiteral("&Sound"), this);
  sound_on_ = new QRadioButton(QStringLiteral("On"), frame2_);
  sound_off_ = new QRadioButton(QStringLiteral("Off"), frame2_);
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

  frame3_ = new QGroupBox(QStringLiteral("&Other"), this);
  check1_ = new QCheckBox(
      QStringLiteral("&Automatically show main window when alarm time is reached"), frame3_);
  check2_ = new QCheckBox(QStringLiteral("Always on &top"), frame3_);
  for (QCheckBox* box : {check1_, check2_}) {
    CheckBox& value = box == check1_ ? form_.Check1 : form_.Check2;
    connect(box, &QCheckBox::toggled, this, [this, &value](bool on) {
      form_.SetValue(value, on ? 1 : 0);
      ShowControls();
    });
  }

  auto* ok = new QPushButton(QStringLiteral("&OK"), this);
  auto* cancel = new QPushButton(QStringLiteral("&Cancel"), this);
  apply_ = new QPushButton(QStringLiteral("&Apply"), this);
  auto* defaults = new QPushButton(QStringLiteral("&Default"), this);
  buttons_ = {ok, cancel, apply_, defaults};
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
  ArrangeToFit();
}

void OptionsDialog::Arrange() {
  frame1_->setGeometry(TwipRect(75, 45, 6405, 1500));
  frame2_->setGeometry(TwipRect(75, 1605, 1035, 1050));
  frame3_->setGeometry(TwipRect(1260, 1605, 5220, 1050));
  FitToCaption(sound_on_, TwipRect(105, 360, 555, 210));
  FitToCaption(sound_off_, TwipRect(120, 675, 555, 210));
  FitToCaption(check1_, TwipRect(135, 300, 4695, 315));
  FitToCaption(check2_, TwipRect(135, 630, 1365, 315));
  const int button_lefts[] = {2220, 3300, 4395, 5490};
  for (int i = 0; i < 4; ++i) buttons_[i]->setGeometry(TwipRect(button_lefts[i], 2745, 975, 345));
  // "Slow" and "Fast" stand over the bars' ends below the frame's caption,
  // wherever the desktop's style draws the frame's line; then the three
  // rows, each label level with its bar and as wide as its widest number.
  const int bar_left = Pixels(1305), bar_width = Pixels(4920), bar_height = Pixels(255);
  slow_->adjustSize();
  fast_->adjustSize();
  const int heads_top = std::max(Pixels(150), frame1_->contentsRect().top());
  slow_->move(bar_left, heads_top);
  fast_->move(bar_left + bar_width - fast_->width(), heads_top);
  const int first_bar = std::max(Pixels(435), heads_top + slow_->height());
  const char* names[] = {"Game A", "Game B", "Diver"};
  const int label_lefts[] = {Pixels(120), Pixels(120), Pixels(135)};
  for (int i = 0; i < 3; ++i) {
    const int top = first_bar + i * Pixels(330);
    bars_[i]->setGeometry(bar_left, top, bar_width, bar_height);
    const QSize widest =
        speed_labels_[i]->fontMetrics().size(0, QStringLiteral("%1 (441)").arg(names[i]));
    const int height = std::max(widest.height(), speed_labels_[i]->sizeHint().height());
    speed_labels_[i]->setGeometry(label_lefts[i], top + (bar_height - height) / 2,
                                  std::max(widest.width(), speed_labels_[i]->sizeHint().width()),
                                  height);
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
