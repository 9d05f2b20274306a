#include "shell/store/ini_text.h"

#include <QList>
#include <QString>

#include "device/text.h"

namespace nautrix {
namespace {

// Keys and group names keep letters, digits, '-', '_' and '.'; every other
// character is "%XX" (up to U+00FF) or "%UXXXX", as QSettings writes them.
std::string EscapedKey(const std::string& key) {
  QString out;
  for (const QChar c : QString::fromStdString(key)) {
    const char16_t u = c.unicode();
    if ((u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '-' ||
        u == '_' || u == '.') {
      out += c;
    } else if (u <= 0xff) {
      out += QStringLiteral("%%1").arg(int{u}, 2, 16, QLatin1Char('0')).toUpper();
    } else {
      out += QStringLiteral("%U%1").arg(int{u}, 4, 16, QLatin1Char('0')).toUpper();
    }
  }
  return out.toStdString();
}

std::string UnescapedKey(const std::string& text) {
  const QString in = QString::fromStdString(Trimmed(text));
  QString out;
  for (qsizetype i = 0; i < in.size(); ++i) {
    const bool wide = in[i] == '%' && i + 1 < in.size() && in[i + 1] == 'U';
    const qsizetype digits = wide ? 4 : 2, start = i + (wide ? 2 : 1);
    bool ok = false;
    const uint code = in[i] == '%' ? in.mid(start, digits).toUInt(&ok, 16) : 0;
    if (ok && in.mid(start, digits).size() == digits) {
      out += QChar(static_cast<char16_t>(code));
      i = start + digits - 1;
    } else {
      out += in[i];
    }
  }
  return out.toStdString();
}

// A value is written as it stands unless it would not read back so: then in
// double quotes, with \" \\ \n \r \t inside.
std::string EscapedValue(const std::string& value) {
  const bool plain = value.find_first_of("\"\\;,\n\r\t") == std::string::npos &&
                     (value.empty() || (value.front() != ' ' && value.back() != ' '));
  if (plain) return value;
  std::string out = "\"";
  for (const char c : value) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default: out += c;
    }
  }
  return out + '"';
}

// The text of a value: blanks around it dropped, a ';' outside quotes starts
// a comment, double quotes keep what they enclose (with the escapes above).
// Anything else, commas and QSettings' "@Type(...)" forms included, is read
// as plain text.
std::string UnescapedValue(const std::string& raw) {
  std::string out;
  bool quoted = false;
  size_t kept = 0;  // out's length up to its last quoted or non-blank character
  for (size_t i = raw.find_first_not_of(" \t"); i < raw.size(); ++i) {
    const char c = raw[i];
    if (c == '"') {
      quoted = !quoted;
      kept = out.size();
      continue;
    }
    if (!quoted && c == ';') break;
    if (c == '\\' && i + 1 < raw.size()) {
      const char e = raw[++i];
      out += e == 'n' ? '\n' : e == 'r' ? '\r' : e == 't' ? '\t' : e;
      kept = out.size();
      continue;
    }
    out += c;
    if (quoted || (c != ' ' && c != '\t' && c != '\r')) kept = out.size();
  }
  out.resize(kept);
  return out;
}

}  // namespace

IniText::IniText(const QByteArray& bytes) {
  std::string group;
  for (const QByteArray& raw : bytes.split('\n')) {
    Line line{raw.toStdString(), {}, {}};
    const std::string text = Trimmed(line.text);
    if (!text.empty() && text.front() == '[') {
      group = UnescapedKey(text.substr(1, text.find(']') - 1));
    } else if (const size_t equals = text.find('=');
               equals != std::string::npos && text.front() != ';' && text.front() != '#') {
      line.key = UnescapedKey(text.substr(0, equals));
      values_[group][line.key] = UnescapedValue(text.substr(equals + 1));
    }
    line.group = group;
    lines_.push_back(std::move(line));
  }
  if (!lines_.empty() && lines_.back().text.empty()) lines_.pop_back();  // the last newline
}

QByteArray IniText::Bytes() const {
  QByteArray bytes;
  for (const Line& line : lines_) bytes += QByteArray::fromStdString(line.text) + '\n';
  return bytes;
}

void IniText::Set(const std::string& group, const std::string& key,
                  const std::optional<std::string>& change) {
  if (change) {
    values_[group][key] = *change;
  } else if (const auto in_group = values_.find(group); in_group != values_.end()) {
    in_group->second.erase(key);
  }
  // The key's lines; of several, the last one is the one read, and kept.
  std::vector<size_t> found;
  for (size_t i = 0; i < lines_.size(); ++i) {
    if (lines_[i].group == group && lines_[i].key == key) found.push_back(i);
  }
  const size_t keep = change && !found.empty() ? 1 : 0;
  for (size_t n = found.size() - keep; n-- > 0;) lines_.erase(lines_.begin() + found[n]);
  if (!change) return;
  const std::string text = EscapedKey(key) + '=' + EscapedValue(*change);
  if (keep) {
    lines_[found.back() - (found.size() - 1)].text = text;
    return;
  }
  // A new key goes after the last key or header line of its group.
  auto after = lines_.end();
  for (auto line = lines_.begin(); line != lines_.end(); ++line) {
    if (line->group == group && !Trimmed(line->text).empty()) after = std::next(line);
  }
  if (after == lines_.end() && (lines_.empty() || lines_.back().group != group)) {
    if (!lines_.empty()) lines_.push_back({"", lines_.back().group, {}});
    lines_.push_back({'[' + EscapedKey(group) + ']', group, {}});
    after = lines_.end();
  }
  lines_.insert(after, {text, group, key});
}

}  // namespace nautrix
