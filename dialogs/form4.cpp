// The instruction leaflet. Its pages form a ring in both directions, and
// every page but the cover carries its number in the corner.
#include "dialogs/form4.h"

#include <string>

namespace nautrix {

void Form4::Form_Load() {
  CurrentPage = 1;
  PageCount = 9;
  Picture1 = CurrentPage;
  PageDragging = false;
  // The sheet has no control to take the focus: the Tab changes nothing.
  window_.PostTab();
  device_.platform().SetDialogTopmost(Dialog::Instructions, device_.mAlwaysOnTop.Checked);
}

void Form4::ShowPage() {
  Picture1 = CurrentPage;
  Label1.Caption = std::to_string(CurrentPage);
  Label1.Visible = CurrentPage != 1;
}

void Form4::DoNextPage() {
  ++CurrentPage;
  if (CurrentPage > PageCount) CurrentPage = 1;
  ShowPage();
}

void Form4::DoPreviousPage() {
  --CurrentPage;
  if (CurrentPage < 1) CurrentPage = PageCount;
  ShowPage();
}

// Every key acts at each of its repeats, so a held key walks round the ring.
void Form4::Form_KeyDown(int KeyCode, int /*Shift*/) {
  switch (KeyCode) {
    case 34:  // Page Down
    case 13:  // Enter
    case 39:  // Right
    case 40:  // Down
      return DoNextPage();
    case 33:  // Page Up
    case 8:   // Backspace
    case 37:  // Left
    case 38:  // Up
      return DoPreviousPage();
    case 36:  // Home: only from a later page
      if (CurrentPage > 1) {
        CurrentPage = 0;
        DoNextPage();
      }
      return;
    case 35:  // End: only from an earlier page
      if (CurrentPage < PageCount) {
        CurrentPage = PageCount - 1;
        DoNextPage();
      }
      return;
    case 27:  // Esc
      return window_.Unload();
    default:
      return;
  }
}

void Form4::BeginPageDrag(int Button, float X, float Y) {
  if (Button != 1 || PageDragging) return;
  PageDragX = X;
  PageDragY = Y;
  PageStartLeft = window_.Left();
  PageStartTop = window_.Top();
  PageDragging = true;
}

// The page moves with the window, so X and Y measure each move from where
// the sheet now stands: the press point stays under the pointer.
void Form4::MovePageWindow(int Button, float X, float Y) {
  if (Button != 1 || !PageDragging) return;
  window_.Move(window_.Left() + (X - PageDragX), window_.Top() + (Y - PageDragY));
  device_.platform().ProcessEvents();
}

// A window that has moved and not come back exactly turns no page.
void Form4::EndPageDrag(int Button) {
  if (Button == 1) {
    if (!PageDragging) return;
    PageDragging = false;
    if (window_.Left() == PageStartLeft && window_.Top() == PageStartTop) DoNextPage();
  } else if (Button == 2) {
    DoPreviousPage();
  }
}

void Form4::Picture1_MouseDown(int Button, int /*Shift*/, float X, float Y) {
  BeginPageDrag(Button, X, Y);
}

void Form4::Picture1_MouseMove(int Button, int /*Shift*/, float X, float Y) {
  MovePageWindow(Button, X, Y);
}

void Form4::Picture1_MouseUp(int Button, int /*Shift*/, float /*X*/, float /*Y*/) {
  EndPageDrag(Button);
}

}  // namespace nautrix
