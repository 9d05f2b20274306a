// A StatusNotifier tray of the tests' own: it takes the watcher's name on the
// session bus, says a host is there, and prints the bus name of every item
// that registers, one a line, so that a test can reach the item.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <cstdio>

class Watcher : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered READ HostRegistered)
  Q_PROPERTY(int ProtocolVersion READ ProtocolVersion)
  Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ Items)

 public:
  bool HostRegistered() const { return true; }
  int ProtocolVersion() const { return 0; }
  QStringList Items() const { return items_; }

 public slots:
  // An item names itself by a service name, or leaves it to the sender's.
  void RegisterStatusNotifierItem(const QString& service, const QDBusMessage& message) {
    const QString name = service.startsWith('/') ? message.service() : service;
    items_ << name;
    std::printf("%s\n", qPrintable(name));
    std::fflush(stdout);
    emit StatusNotifierItemRegistered(name);
  }
  void RegisterStatusNotifierHost(const QString&) {}

 signals:
  void StatusNotifierItemRegistered(const QString& service);

 private:
  QStringList items_;
};

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  Watcher watcher;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                          QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                              QDBusConnection::ExportAllProperties) ||
      !bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")))
    return 1;
  return app.exec();
}

#include "status_notifier_host.moc"
