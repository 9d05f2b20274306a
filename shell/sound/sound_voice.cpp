#include "shell/sound/sound_voice.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>

#include "shell/file_stamp.h"
#include "shell/sound/pulse_output.h"

namespace nautrix {
namespace {

// A beep is a few kilobytes; a file much larger than this is no beep, and is
// not read at all.
constexpr off_t kLargestWave = 32 * 1024 * 1024;

bool Before(const timespec& a, const timespec& b) {
  return a.tv_sec < b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec < b.tv_nsec);
}

// The file's whole contents, read from an open descriptor.
std::vector<uint8_t> ReadAll(int fd, off_t size) {
  std::vector<uint8_t> bytes(static_cast<size_t>(size));
  size_t got = 0;
  while (got < bytes.size()) {
    const ssize_t n = read(fd, bytes.data() + got, bytes.size() - got);
    if (n <= 0) break;
    got += static_cast<size_t>(n);
  }
  bytes.resize(got);
  return bytes;
}

}  // namespace

// ---- VoiceReader -----------------------------------------------------------

void VoiceReader::Start(std::shared_ptr<const Samples> sound) {
  sound_ = std::move(sound);
  next_ = 0;
  started_ = std::chrono::steady_clock::now();
}

void VoiceReader::Read(int16_t* out, size_t count) {
  const size_t from_sound = Sounding() ? std::min(count, sound_->size() - next_) : 0;
  if (from_sound > 0) std::copy_n(sound_->data() + next_, from_sound, out);
  next_ += from_sound;
  std::fill(out + from_sound, out + count, int16_t{0});
}

void VoiceReader::CatchUp() {
  if (!Sounding()) return;
  const auto late = std::chrono::steady_clock::now() - started_;
  const auto samples =
      std::chrono::duration_cast<std::chrono::microseconds>(late).count() * kVoiceRate / 1000000;
  next_ = std::min(sound_->size(), next_ + static_cast<size_t>(samples));
}

// ---- SoundVoice ------------------------------------------------------------

SoundVoice::SoundVoice(bool to_device) : output_to_open_(to_device) {}

SoundVoice::~SoundVoice() = default;

void SoundVoice::OpenOutput() {
  if (!output_to_open_) return;
  output_to_open_ = false;
  output_ = PulseOutput::Open(reader_);
}

void SoundVoice::Preload(const QString& path) { Load(path); }

void SoundVoice::Play(const QString& path) {
  OpenOutput();
  std::shared_ptr<const Samples> samples = Load(path);
  if (output_) {
    output_->Start(std::move(samples));
  } else {
    reader_.Start(std::move(samples));
  }
}

std::shared_ptr<const Samples> SoundVoice::Load(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  struct stat st;
  if (stat(name.constData(), &st) != 0 || !S_ISREG(st.st_mode)) return nullptr;
  Decoded& entry = decoded_[name.toStdString()];
  if (SameFileState(entry.stamp, st) && !entry.racy) return entry.samples;

  // The stamp is taken from the file that is read, whatever the name points
  // at by now; a pipe or a device in its place is never read.
  entry = Decoded{};
  const int fd = open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return nullptr;
  if (fstat(fd, &st) == 0 && S_ISREG(st.st_mode)) {
    entry.stamp = st;
    if (st.st_size <= kLargestWave) {
      const std::vector<uint8_t> bytes = ReadAll(fd, st.st_size);
      if (std::optional<Samples> samples = DecodeWave(bytes.data(), bytes.size(), kVoiceRate))
        entry.samples = std::make_shared<const Samples>(std::move(*samples));
    }
    // File times come from the kernel's coarse clock: a change within its
    // current tick could leave the stamp as it is.
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    entry.racy = !Before(st.st_ctim, now);
  }
  close(fd);
  return entry.samples;
}

}  // namespace nautrix
