#!/usr/bin/env bash
# What the tests catch: plants each fault of a list below, one at a time, in
# a scratch copy of the tree, rebuilds the tests there and runs them. A fault
# is caught when the tests fail (or hang); a fault whose text is no longer
# found exactly once in its file is reported as stale, so the list can follow
# the code. The working tree is only read, never written.
#
#   tools/plant_faults.sh [-v] [--qt] [FAULT_NUMBER...]   (all faults by default)
#
# By default the core's faults against the core tests (nautrix_tests); with
# --qt the desktop shell's faults against the Qt tests (nautrix_qt_tests),
# under the offscreen platform. The end-to-end tier is not run: a fault only
# it catches shows here as missed. With -v each caught fault is followed by
# the tests that caught it.
#
# A fault is one line, "file: text => replacement"; a replacement left empty
# removes the text. The faults are the kinds a slip of the hand makes: a gate
# removed, a comparison turned, a constant off by one, a branch of a rule
# applied to the other route.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
verbose=0 list=core
while [ $# -gt 0 ]; do
  case $1 in
    -v) verbose=1 ;;
    --qt) list=qt ;;
    *) break ;;
  esac
  shift
done

core_faults=$(cat <<'EOF'
device/tick.cpp: if (IsVisible(Obj::BackCase)) return; =>
device/tick.cpp: if (OverSeconds >= 60) { => if (OverSeconds >= 61) {
device/tick.cpp: if (BonusBeats == 0 && CaptureBeats == 0 && BoatWait != 0) { => if (CaptureBeats == 0 && BoatWait != 0) {
device/tick.cpp: if (RepeatDelay >= 3) StepClock(true); => if (RepeatDelay >= 2) StepClock(true);
device/startup.cpp: if (!KeyMissing(store::kSeconds)) DeleteSetting(store::kSeconds); =>
device/store.cpp: value >= rule.low && value <= rule.high) return value; => value >= rule.low && value < rule.high) return value;
game/tentacles.cpp: return static_cast<int>(r * 5.0f) <= 2; => return static_cast<int>(r * 5.0f) <= 3;
game/tentacles.cpp: if (GameMode == 2 && TentacleLength[t] == 1 => if (TentacleLength[t] == 1
game/tentacles.cpp: if (t <= 1) PairReady = 0; =>
game/diver.cpp: if (DiverPos == 9) DiverPos = 5; => if (DiverPos == 9) DiverPos = 6;
game/diver.cpp: if (BonusBeats != 0 || DiverLoad != 2) return; => if (DiverLoad != 2) return;
game/capture.cpp: if (Misses == 4) return; =>
game/capture.cpp: CaptureBeats = Playing ? 11 : 9; => CaptureBeats = Playing ? 11 : 11;
game/capture.cpp: if (Misses == 4) CaptureBeats = 7; => if (Misses == 3) CaptureBeats = 7;
game/capture.cpp: for (int k = 2; k <= 4; ++k) => for (int k = 2; k <= 3; ++k)
game/capture.cpp: if (TentacleLength[3] < 2) { => if (TentacleLength[3] < 4) {
game/score.cpp: if (Score == 200 || Score == 500) { => if (Score == 200 || Score == 501) {
game/score.cpp: if (BonusBeats == 0) Misses = 0; =>
game/pace.cpp: {970, 998, 80}, => {970, 999, 80},
game/attract.cpp: for (int i = 0; i < 4; ++i) MoveTentacles(); => for (int i = 0; i < 3; ++i) MoveTentacles();
game/attract.cpp: CaptureBeats = 1; => CaptureBeats = 0;
clock/alarm.cpp: if (AlarmSetting != 0 || ClockSetting != 0 || !IsVisible(Obj::Note)) return; => if (AlarmSetting != 0 || !IsVisible(Obj::Note)) return;
clock/alarm.cpp: if (mSound.Checked && (!Playing || Misses == 4)) { => if (!Playing || Misses == 4) {
clock/alarm.cpp: if (Misses != 4 && Playing) return; =>
clock/clock_setting.cpp: if (m > 59) m = 0; => if (m > 60) m = 0;
clock/clock_setting.cpp: (t.substr(7, 2) == "AM" ? "PM" : "AM") => t.substr(7, 2)
clock/clock_setting.cpp: ":" + t.substr(2, 2) + ":" => ":" + t.substr(4, 2) + ":"
clock/acl_reset.cpp: SaveSetting(store::kAlarmOn, BoolText(false)); =>
clock/time_text.cpp: time.hour % 12 == 0 ? 12 : time.hour % 12; => time.hour % 12;
clock/readout.cpp: DigitsValue(text, 4, 2) % 2 == 0); => DigitsValue(text, 4, 2) % 2 == 1);
keys/key_actions.cpp: if (key != kAclKey && form.BoatBeats != 0 && form.Playing) return; => if (form.BoatBeats != 0 && form.Playing) return;
keys/key_actions.cpp: if (route == KeyRoute::Keyboard) LeftKeyAction(); => LeftKeyAction();
keys/key_actions.cpp: else LeftKeyAction(); => else RepeatDelay = 0;
keys/key_actions.cpp: DiverPos <= 5 && !(BonusBeats > 0 && DiverPos == 0)) { => DiverPos <= 5) {
keys/key_actions.cpp: if (route == KeyRoute::Pointer && Misses == 4) { => if (Misses == 4) {
keys/pointer_tracking.cpp: {309, 315, 35, 41},    // ALARM => {309, 315, 35, 40},    // ALARM
keys/pointer_tracking.cpp: if (slid_on || key == kGameAKey || key == kGameBKey || key == kTimeKey) { => if (slid_on) {
keys/keyboard.cpp: case 37: case 38: return kLeftKey; => case 37: return kLeftKey;
keys/keyboard.cpp: if (!released && KeyCode == kSoundKeyCode) mSound_Click(); => if (KeyCode == kSoundKeyCode) mSound_Click();
window/menu.cpp: if (TrayBusy) return; =>
window/drag.cpp: platform_.WindowLeft() + (X - DragX) => platform_.WindowLeft() + (DragX - X)
window/drag.cpp: if (Button == 2 && PressedKey == kNoKey) OpenPopupMenu(); => if (Button == 2) OpenPopupMenu();
window/pointer.cpp: o != Obj::Logo && o != Obj::Colon; => o != Obj::Logo;
device/sound.cpp: if (!Playing || !mSound.Checked) return; => if (!mSound.Checked) return;
dialogs/form3.cpp: std::to_string(bar.Value + 1) => std::to_string(bar.Value)
dialogs/form3.cpp: std::to_string(bar.Max - bar.Value + 1) => std::to_string(bar.Max - bar.Value)
dialogs/form3.cpp: device_.DoCheckSpeed(); =>
dialogs/form3.cpp: LoadSpeed(HScroll1, store::kGameASpeed); =>
dialogs/form4.cpp: if (CurrentPage > PageCount) CurrentPage = 1; => if (CurrentPage > PageCount) CurrentPage = PageCount;
dialogs/form2.cpp: OpenLink(Email, "mailto:" + Email.Caption); => OpenLink(Email, Email.Caption);
EOF
)

# The desktop's side: the store's file, the voice and its cache, the wave
# decoder, the window's repaints, pointer and keys, the pictures, the dialogs.
qt_faults=$(cat <<'EOF'
shell/file_stamp.h: a.st_dev == b.st_dev && a.st_ino == b.st_ino && => a.st_dev == b.st_dev &&
shell/store/durable_file.cpp: ok = ok && Disk().fsync(fd) == 0; =>
shell/store/durable_file.cpp: ok = ok && Disk().rename(temp.c_str(), target.c_str()) == 0; =>
shell/store/durable_file.cpp: ::flock(fd_, LOCK_EX | LOCK_NB) => ::flock(fd_, LOCK_SH | LOCK_NB)
shell/store/ini_text.cpp: if (!quoted && c == ';') break; => if (c == ';') break;
shell/store/durable_file.cpp: const std::string target = Target(path); => const std::string target = path;
shell/file_stamp.h: a.st_ctim.tv_sec == b.st_ctim.tv_sec && a.st_ctim.tv_nsec == b.st_ctim.tv_nsec && =>
shell/sound/sound_voice.cpp: if (st.st_size <= kLargestWave) { => if (st.st_size <= 2 * kLargestWave) {
shell/sound/wave_decoder.cpp: at = body + length + (length & 1); => at = body + length;
shell/sound/wave_decoder.cpp: return (p[0] - 128) * 256.0; => return p[0] * 256.0;
shell/sound/wave_decoder.cpp: uint64_t{kLongestSoundSeconds} * static_cast<uint64_t>(rate)); => uint64_t{kLongestSoundSeconds + 1} * static_cast<uint64_t>(rate));
shell/window/device_window.cpp: update(r.left, r.top, r.width, r.height); => update(r.left, r.top, r.width - 1, r.height);
shell/window/device_window.cpp: const QPoint client = ClientPoint(global.toPoint()); => const QPoint client = global.toPoint();
shell/pictures/device_painter.cpp: for (int i = kClientObjectCount - 1; i >= 0; --i) { => for (int i = 0; i < kClientObjectCount; ++i) {
shell/window/keyboard_route.cpp: held_->scan == event.nativeScanCode() && => held_->scan == event.nativeScanCode();
shell/window/qt_platform.cpp: constexpr int kFrameTopTwips = 330; => constexpr int kFrameTopTwips = 345;
shell/pictures/built_pictures.cpp: if (device_pixel_ratio != 1) => if (device_pixel_ratio > 2)
dialogs/qt/dialog_frame.cpp: if (second) second->setFocus(Qt::TabFocusReason); =>
dialogs/qt/about_dialog.cpp: palette.setColor(QPalette::WindowText, QColor(c.red, c.green, c.blue)); =>
dialogs/qt/options_dialog.cpp: const bool toward_min = (key == Qt::Key_Left) != isRightToLeft(); => const bool toward_min = key == Qt::Key_Right;
dialogs/qt/dialog_frame.cpp: if (isMinimized()) showNormal(); =>
dialogs/qt/link_opener.cpp: const Hushed quiet; =>
dialogs/qt/dialog_frame.cpp: if (scale_ >= 3 * first || LayoutFaults(*this).isEmpty()) return; => return;
EOF
)
if [ $list = qt ]; then
  faults=$qt_faults tests=nautrix_qt_tests
else
  faults=$core_faults tests=nautrix_tests
fi

scratch=$(mktemp -d /tmp/nautrix-faults.XXXXXX)
trap 'rm -rf "$scratch"' EXIT
src=$scratch/src build=$scratch/build
mkdir -p "$src"
# The tree as it stands, uncommitted changes included.
git -C "$root" ls-files -z --cached --others --exclude-standard |
  (cd "$root" && tar --null -T - -cf - 2>/dev/null) | tar -xf - -C "$src"

command -v ccache >/dev/null && export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$scratch
cmake -S "$src" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DNAUTRIX_TESTS=ON -DNAUTRIX_BENCH=OFF >"$scratch/configure.log" 2>&1 ||
  { cat "$scratch/configure.log"; exit 1; }
build_tests() { cmake --build "$build" --target $tests -j2 >"$scratch/build.log" 2>&1; }
# A fault may send a test round a loop for good: it has a minute and 2 GB.
run_tests() {
  (ulimit -v 2000000; QT_QPA_PLATFORM=offscreen exec timeout 60 "$build/tests/$tests" --gtest_brief=1) \
    >"$scratch/tests.log" 2>&1
}
# The tests that failed, or how the run ended.
failures() {
  local rc=$1
  if [ "$rc" -eq 124 ]; then echo "    (timed out)"
  elif [ "$rc" -gt 128 ]; then echo "    (ended by signal $((rc - 128)))"
  else grep -E '^\[  FAILED  \] [A-Za-z]' "$scratch/tests.log" | sed 's/^\[  FAILED  \] /    /; s/ (.*//' | sort -u || true
  fi
}
build_tests || { tail -20 "$scratch/build.log"; exit 1; }
run_tests || { echo "the tests ($tests) fail without a fault: nothing to measure" >&2; exit 1; }

count_of() { OLD=$2 perl -0ne 'print scalar(() = /\Q$ENV{OLD}\E/g)' "$1"; }

planted=0 caught=0 missed=0 stale=0 broken=0 n=0
while IFS= read -r line; do
  n=$((n + 1))
  if [ $# -gt 0 ] && ! printf '%s\n' "$@" | grep -qx "$n"; then continue; fi
  file=${line%%: *} rest=${line#*: }
  before=${rest%% =>*} after=${rest#* =>}
  after=${after# }
  target=$src/$file
  if [ ! -f "$target" ] || [ "$(count_of "$target" "$before")" != 1 ]; then
    stale=$((stale + 1))
    printf '%2d stale   %s\n' "$n" "$line"
    continue
  fi
  cp -p "$target" "$scratch/original"
  OLD=$before NEW=$after perl -0pi -e 's/\Q$ENV{OLD}\E/$ENV{NEW}/' "$target"
  rc=0
  if ! build_tests; then
    broken=$((broken + 1))
    printf '%2d broken  %s (does not build)\n' "$n" "$line"
  elif run_tests 2>/dev/null || rc=$?; [ "$rc" -eq 0 ]; then
    planted=$((planted + 1)) missed=$((missed + 1))
    printf '%2d MISSED  %s\n' "$n" "$line"
  else
    planted=$((planted + 1)) caught=$((caught + 1))
    printf '%2d caught  %s\n' "$n" "$line"
    [ $verbose -eq 0 ] || failures "$rc"
  fi
  # The original back, with a new time, so that the next build sees it.
  cp "$scratch/original" "$target"
  touch "$target"
done <<<"$faults"
build_tests
echo "faults planted: $planted, caught: $caught, missed: $missed (stale: $stale, not building: $broken)"
