// The options window: shows Form3's controls and hands every change the user
// makes to Form3, which decides everything.
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <array>

#include "dialogs/form3.h"
#include "dialogs/qt/dialog_frame.h"

namespace nautrix {

class OptionsDialog : public DialogFrame, public DialogWindow {
 public:
  explicit OptionsDialog(Form1& device);

  // Form_Load, and the controls as it leaves them.
  void Load();
  Form3& form() { return form_; }

  void Unload() override { QDialog::done(Rejected); }
  void PostTab() override { FocusSecondControl(); }

 protected:
  // Esc and the frame's close are Cancel.
  void reject() override;

  void Arrange() override;

 private:
  // Shows the values of Form3's controls.
  void ShowControls();

  Form3 form_;
  std::array<ScrollBar*, 3> speeds_;  // Form3's bars, in their order on screen
  std::array<QScrollBar*, 3> bars_;
  std::array<QLabel*, 3> speed_labels_;
  QGroupBox* frame1_;
  QGroupBox* frame2_;
  QGroupBox* frame3_;
  QLabel* slow_;
  QLabel* fast_;
  QRadioButton* sound_on_;
  QRadioButton* sound_off_;
  QCheckBox* check1_;
  QCheckBox* check2_;
  QPushButton* apply_;
  std::array<QPushButton*, 4> buttons_;  // OK, Cancel, Apply, Default
};

}  // namespace nautrix
