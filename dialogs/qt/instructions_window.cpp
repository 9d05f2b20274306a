#include "dialogs/qt/instructions_window.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "shell/input/key_codes.h"
#include "shell/window/device_accessible.h"
#include "shell/pictures/picture_book.h"

namespace nautrix {

InstructionsWindow::InstructionsWindow(Form1& device)
    : DialogFrame(Kind::Frameless, 413, 250), form_(device, *this) {
  setAttribute(Qt::WA_OpaquePaintEvent);  // the page covers every pixel
  // The page's number in the top right corner, black on white, its right
  // edge at pixel 407 whatever its width.
  label1_ = new QLabel(this);
  label1_->setFont(BoldFont());
  label1_->setAlignment(Qt::AlignRight | Qt::AlignTop);
  QPalette paper = label1_->palette();
  paper.setColor(QPalette::Window, Qt::white);
  paper.setColor(QPalette::WindowText, Qt::black);
  label1_->setPalette(paper);
  label1_->setAutoFillBackground(true);
  label1_->setGeometry(TwipRect(6045, 60, 60, 210));
  label1_->hide();
  // The number takes its presses and does nothing with them.
  label1_->installEventFilter(this);
}

void InstructionsWindow::Load() {
  form_.Form_Load();
  ShowPage();
}

void InstructionsWindow::Move(float left, float top) {
  pos_ = QPoint(qRound(left / kTwipsPerPixel), qRound(top / kTwipsPerPixel));
  move(pos_);
}

void InstructionsWindow::ShowPage() {
  if (form_.Picture1 != page_drawn_) {
    page_drawn_ = form_.Picture1;
    page_image_ = RenderPage(page_drawn_, devicePixelRatioF());
    update();
    setAccessibleName(LeafletPageName(page_drawn_));
    setAccessibleDescription(LeafletPageDescription(page_drawn_));
  }
  const QRect design = TwipRect(6045, 60, 60, 210);
  label1_->setText(QString::fromStdString(form_.Label1.Caption));
  label1_->adjustSize();
  label1_->move(design.right() + 1 - label1_->width(), design.top());
  label1_->setVisible(form_.Label1.Visible);
}

void InstructionsWindow::paintEvent(QPaintEvent*) {
  // A page drawn for another pixel ratio is drawn anew for this screen.
  if (page_image_.devicePixelRatio() != devicePixelRatioF() && page_drawn_ != 0)
    page_image_ = RenderPage(page_drawn_, devicePixelRatioF());
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (!page_image_.isNull()) painter.drawImage(0, 0, page_image_);
}

// Every press of a key, each repeat of a held one included.
void InstructionsWindow::keyPressEvent(QKeyEvent* event) {
  form_.Form_KeyDown(VirtualKeyCode(event->key(), event->modifiers()),
                     ShiftState(event->modifiers()));
  ShowPage();
}

QPointF InstructionsWindow::Twips(const QPointF& global) const { return (global - pos_) * kTwipsPerPixel; }

void InstructionsWindow::mousePressEvent(QMouseEvent* event) {
  const QPointF xy = Twips(event->globalPosition());
  form_.Picture1_MouseDown(ButtonCode(event->button()), ShiftState(event->modifiers()), xy.x(),
                           xy.y());
}

void InstructionsWindow::mouseMoveEvent(QMouseEvent* event) {
  const QPointF xy = Twips(event->globalPosition());
  form_.Picture1_MouseMove(ButtonCode(event->buttons()), ShiftState(event->modifiers()), xy.x(),
                           xy.y());
}

void InstructionsWindow::mouseReleaseEvent(QMouseEvent* event) {
  const QPointF xy = Twips(event->globalPosition());
  form_.Picture1_MouseUp(ButtonCode(event->button()), ShiftState(event->modifiers()), xy.x(),
                         xy.y());
  ShowPage();
}

// The device's own moves during a drag are taken as set; any other move (the
// window manager's placement, its keyboard move) as it comes.
void InstructionsWindow::moveEvent(QMoveEvent* event) {
  if (!form_.PageDragging) pos_ = event->pos();
}

bool InstructionsWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == label1_ && (event->type() == QEvent::MouseButtonPress ||
                             event->type() == QEvent::MouseButtonDblClick ||
                             event->type() == QEvent::MouseButtonRelease ||
                             event->type() == QEvent::MouseMove))
    return true;
  return DialogFrame::eventFilter(watched, event);
}

}  // namespace nautrix
