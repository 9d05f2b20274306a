// The screen objects' operations and Timer1's interval. Only real changes
// reach the platform, so the window repaints only what changed and the timer
// is restarted only for a new interval.
#include "device/form1.h"

namespace nautrix {

Form1::Form1(Platform& platform) : platform_(platform) {
  for (int i = 0; i < kObjectCount; ++i) {
    const ObjectInfo& info = Info(static_cast<Obj>(i));
    objects_[i] = {info.shown, info.picture};
  }
  back_case_rect_ = Info(Obj::BackCase).rect;
}

void Form1::SetVisible(Obj o, bool visible) {
  ObjectState& state = objects_[Index(o)];
  if (state.Visible == visible) return;
  state.Visible = visible;
  if (InClientArea(o)) platform_.ObjectChanged(o);
}

void Form1::CopyPicture(Obj from, Obj to) {
  ObjectState& state = objects_[Index(to)];
  const Pic picture = Picture(from);
  if (state.Picture == picture) return;
  state.Picture = picture;
  if (state.Visible && InClientArea(to)) platform_.ObjectChanged(to);
}

Rect Form1::ObjectRect(Obj o) const {
  return o == Obj::BackCase ? back_case_rect_ : Info(o).rect;
}

Obj Form1::ObjectAt(int x, int y) const {
  for (int i = 0; i < kClientObjectCount; ++i) {
    const Obj o = static_cast<Obj>(i);
    if (Info(o).enabled && IsVisible(o) && ObjectRect(o).Contains(x, y)) return o;
  }
  return Obj::Count;
}

void Form1::SetTimer1Interval(int ms) {
  if (ms == timer1_interval_) return;
  timer1_interval_ = ms;
  platform_.SetTimerInterval(ms);
}

}  // namespace nautrix
