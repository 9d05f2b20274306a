// A StatusNotifier tray of the tests' own: it takes the watcher's name on the
// session bus, says a host is there, and prints the bus name of every item
// that registers, one a line, so that a test can reach the item.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <cstdio>

class Watcher : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered READ HostRegistered)

 public:
  bool HostRegistered() const { return true; }

 public slots:
  // An item names itself by a service name, or leaves it to the sender's.
  void RegisterStatusNotifierItem(const QString& service, const QDBusMessage& message) {
    const QString name = service.startsWith('/') ? message.service() : service;
    std::printf("%s\n", qPrintable(name));
    std::fflush(stdout);
  }
};

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  Watcher watcher;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                          QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties) ||
      !bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")))
    return 1;
  return app.exec();
}

#include "status_notifier_host.moc"
