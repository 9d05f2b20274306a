// The About window: shows Form2's labels and hands the presses and releases
// of the three links to Form2, which opens them.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <array>

#include "dialogs/form2.h"
#include "dialogs/qt/dialog_frame.h"

namespace nautrix {

class AboutDialog : public DialogFrame, public DialogWindow {
 public:
  explicit AboutDialog(Form1& device);

  void Load() { form_.Form_Load(); }
  Form2& form() { return form_; }

  void Unload() override { QDialog::done(Rejected); }
  void PostTab() override { FocusSecondControl(); }

 protected:
  // Esc and the frame's close are OK: the one button is default and cancel.
  void reject() override { form_.Command1_Click(); }
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Arrange() override;

 private:
  void ShowLinks();

  Form2 form_;
  // The version, the author, the mail and home page links, and in the frame
  // the thanks, its first line, the further page's link and its last line.
  std::array<QLabel*, 8> labels_;
  std::array<QLabel*, 3> links_;  // Email, Homepage, Handbill
  QGroupBox* frame1_;
  QPushButton* ok_;
};

}  // namespace nautrix
