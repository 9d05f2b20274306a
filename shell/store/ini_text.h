// The text of the settings file, as QSettings writes INI files: groups in
// brackets, "key=value" lines, keys and values escaped the way QSettings
// escapes them. Every line is kept as it stands, so that a change of one key
// leaves the rest of the file, comments and hand-written junk included, as
// it was.
#pragma once

#include <QByteArray>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace nautrix {

class IniText {
 public:
  using Values = std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>>;

  explicit IniText(const QByteArray& bytes = {});
  // The values by group and key; of a key written twice, the last.
  const Values& values() const { return values_; }
  // The line of `key` in `group` says `text`: changed in place, removed
  // (nullopt), or added after the last line of its group (and the group
  // added at the end).
  void Set(const std::string& group, const std::string& key, const std::optional<std::string>& text);
  QByteArray Bytes() const;

 private:
  // One line, as it stands; `key` is empty unless it is a key line.
  struct Line {
    std::string text, group, key;
  };
  std::vector<Line> lines_;
  Values values_;
};

}  // namespace nautrix
