// The beeps: four wave files beside the program, looked for at every call so
// that a file added or removed during the run counts at its next use.
#include "device/form1.h"

namespace nautrix {

void Form1::PlaySoundFile(const std::string& Filename) {
  // Only a running game sounds; the demo goes through the same routines and
  // stays silent by this gate alone.
  if (!Playing || !mSound.Checked) return;
  const std::string path = ProgramFilePath(Filename);
  if (!FileExists(path)) return;
  platform_.PlayWave(path);
}

std::string Form1::ProgramFilePath(const std::string& Filename) {
  const std::string folder = platform_.ProgramFolder();
  if (!folder.empty() && folder.back() == '/') return folder + Filename;
  return folder + "/" + Filename;
}

bool Form1::FileExists(const std::string& Filename) {
  bool is_directory = false;
  if (!platform_.FileAttributes(Filename, is_directory)) return false;
  return !is_directory;
}

}  // namespace nautrix
