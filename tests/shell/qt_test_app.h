// The one application object of the shell's tests, under the offscreen
// platform unless the run chose another, with a configuration folder of its
// own so that no test reads or writes the user's store (the tests' voices
// are made without an audio server, so none is looked for); and the small
// file helpers the tests share.
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include "device/platform.h"
#include "device/store_keys.h"

namespace nautrix {

// A key of the device's store through a platform: its value, or "NotFound".
inline std::string Stored(Platform& platform, const char* key) {
  return platform.GetSetting(store::kApp, store::kSection, key, "NotFound");
}
inline void Store(Platform& platform, const char* key, const std::string& value) {
  platform.SaveSetting(store::kApp, store::kSection, key, value);
}

inline QByteArray FileText(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QString WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) file.write(bytes);
  return path;
}

inline QApplication& TestApp() {
  static QApplication* app = [] {
    static QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "nautrix_qt_tests";
    static char* argv[] = {name, nullptr};
    return new QApplication(argc, argv);
  }();
  return *app;
}

// The store of a test in a folder of its own, given back at the end.
class ScopedStoreFolder {
 public:
  explicit ScopedStoreFolder(const QString& path) {
    TestApp();
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
  }
  ~ScopedStoreFolder() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       qEnvironmentVariable("XDG_CONFIG_HOME"));
  }
};

}  // namespace nautrix
