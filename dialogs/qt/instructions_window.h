// The instruction leaflet's window: a white sheet without a frame that shows
// the page Form4 names, and hands it every key, press, move and release.
#pragma once

#include <QImage>
#include <QLabel>
#include <QPoint>

#include "dialogs/form4.h"
#include "dialogs/qt/dialog_frame.h"

namespace nautrix {

class InstructionsWindow : public DialogFrame, public PageWindow {
 public:
  explicit InstructionsWindow(Form1& device);

  void Load();
  Form4& form() { return form_; }

  void Unload() override { QDialog::done(Rejected); }
  void PostTab() override { FocusSecondControl(); }
  float Left() override { return static_cast<float>(pos_.x() * kTwipsPerPixel); }
  float Top() override { return static_cast<float>(pos_.y() * kTwipsPerPixel); }
  void Move(float left, float top) override;
  // Where the device last put the sheet; the window manager applies a move
  // a moment later.
  QPoint SheetPos() const { return pos_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent*) override {}
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void reject() override { Unload(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Twips relative to the page, for a pointer at `global`.
  QPointF Twips(const QPointF& global) const;
  void ShowPage();

  Form4 form_;
  QLabel* label1_;
  QPoint pos_;
  int page_drawn_ = 0;  // the page in page_image_
  QImage page_image_;
};

}  // namespace nautrix
