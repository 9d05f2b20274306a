// Starts a program and times its first frame on the X server: the first
// drawing into a new top-level window of the given size, seen through the
// X Damage extension. Prints the program's PID at once, then the
// milliseconds from the start to that frame (or -1 when none came within
// 30 s) and the CPU milliseconds the program had used by then (all its
// threads), and stays until the program ends, so that the caller can stop it
// by its PID and wait for this launcher.
//
//   nautrix_first_frame WIDTHxHEIGHT PROGRAM [ARGUMENTS...]
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

long MsSince(Clock::time_point start) {
  return static_cast<long>(
      std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

// Waits for the first drawing into a new top-level window of the size; the
// milliseconds from `start`, or -1.
long FirstFrameMs(xcb_connection_t* x, uint8_t damage_event, int width, int height,
                  Clock::time_point start) {
  const int fd = xcb_get_file_descriptor(x);
  while (MsSince(start) < 30000) {
    pollfd p{fd, POLLIN, 0};
    if (poll(&p, 1, 100) < 0) return -1;
    while (xcb_generic_event_t* event = xcb_poll_for_event(x)) {
      const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> owned(event, &std::free);
      const uint8_t type = event->response_type & 0x7f;
      if (type == damage_event + XCB_DAMAGE_NOTIFY) return MsSince(start);
      if (type != XCB_CREATE_NOTIFY) continue;
      const auto* created = reinterpret_cast<xcb_create_notify_event_t*>(event);
      if (created->width != width || created->height != height) continue;
      xcb_damage_create(x, xcb_generate_id(x), created->window,
                        XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
      xcb_flush(x);
    }
    if (xcb_connection_has_error(x)) return -1;
  }
  return -1;
}

// The run time of every thread of the process, from the scheduler's own
// account in nanoseconds.
double CpuMs(pid_t pid) {
  double ns = 0;
  std::error_code error;
  for (const auto& task :
       std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task", error)) {
    std::ifstream stat(task.path() / "schedstat");
    double run_ns = 0;
    if (stat >> run_ns) ns += run_ns;
  }
  return ns / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
  int width = 0, height = 0;
  if (argc < 3 || std::sscanf(argv[1], "%dx%d", &width, &height) != 2) {
    std::fprintf(stderr, "usage: %s WIDTHxHEIGHT PROGRAM [ARGUMENTS...]\n", argv[0]);
    return 2;
  }
  int screen_number = 0;
  xcb_connection_t* x = xcb_connect(nullptr, &screen_number);
  if (xcb_connection_has_error(x)) {
    std::fprintf(stderr, "no X server\n");
    return 1;
  }
  const xcb_query_extension_reply_t* damage = xcb_get_extension_data(x, &xcb_damage_id);
  if (!damage || !damage->present) {
    std::fprintf(stderr, "the X server has no Damage extension\n");
    return 1;
  }
  std::free(xcb_damage_query_version_reply(
      x, xcb_damage_query_version(x, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION), nullptr));
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(x));
  for (int i = 0; i < screen_number; ++i) xcb_screen_next(&screens);
  const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(x, screens.data->root, XCB_CW_EVENT_MASK, &events);
  std::free(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));  // in force now

  const Clock::time_point start = Clock::now();
  const pid_t child = fork();
  if (child < 0) return 1;
  if (child == 0) {
    close(xcb_get_file_descriptor(x));
    execvp(argv[2], argv + 2);
    _exit(127);
  }
  std::printf("%d\n", static_cast<int>(child));
  std::fflush(stdout);
  const long frame_ms = FirstFrameMs(x, damage->first_event, width, height, start);
  std::printf("%ld\n%.1f\n", frame_ms, CpuMs(child));
  std::fflush(stdout);
  xcb_disconnect(x);
  int status = 0;
  waitpid(child, &status, 0);
  return 0;
}
