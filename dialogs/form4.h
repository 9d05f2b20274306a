// Form4, the instruction leaflet: a white sheet without a frame that shows
// one of the nine pages. A left click turns on, a right click turns back, a
// left drag moves the sheet, and the keyboard pages and closes it.
#pragma once

#include <cstdint>

#include "device/form1.h"
#include "dialogs/dialog_window.h"

namespace nautrix {

class Form4 {
 public:
  Form4(Form1& device, PageWindow& window) : device_(device), window_(window) {}

  // ---- What the sheet shows -------------------------------------------------
  int Picture1 = 0;  // the page whose picture Picture1 shows, 1-9; 0 empty
  Label Label1{"", false};  // the page's number at the top right corner

  // ---- The instance fields ----------------------------------------------------
  int16_t CurrentPage = 0;           // 1..PageCount: the page shown
  int16_t PageCount = 0;             // 9 from the load on
  bool PageDragging = false;         // a left press on the page is under way
  float PageDragX = 0, PageDragY = 0;        // twips: the press, relative to the page
  float PageStartLeft = 0, PageStartTop = 0; // twips: the window at the press

  // ---- Routines and event handlers --------------------------------------------
  void Form_Load();
  void Form_KeyDown(int KeyCode, int Shift);
  void DoNextPage();
  void DoPreviousPage();
  // One press serves clicking and dragging; the release decides. X and Y are
  // twips relative to the page, which moves with the window.
  void BeginPageDrag(int Button, float X, float Y);
  void MovePageWindow(int Button, float X, float Y);
  void EndPageDrag(int Button);
  void Picture1_MouseDown(int Button, int Shift, float X, float Y);
  void Picture1_MouseMove(int Button, int Shift, float X, float Y);
  void Picture1_MouseUp(int Button, int Shift, float X, float Y);

 private:
  void ShowPage();

  Form1& device_;
  PageWindow& window_;
};

}  // namespace nautrix
