// The floor the device is measured against: the least a Qt program that
// shows this clock can do. A bare frameless 333 x 198 window whose 50 ms
// precise timer reads the time and repaints one small rectangle once a
// second, as the device's colon blinks.
#include <QApplication>
#include <QPainter>
#include <QTime>
#include <QTimer>
#include <QWidget>

namespace {

class FloorWindow : public QWidget {
 public:
  FloorWindow() : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint) {
    setFixedSize(333, 198);
    setWindowTitle(QStringLiteral("Floor"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(50);
    connect(&timer_, &QTimer::timeout, this, [this] {
      const int second = QTime::currentTime().second();
      if (second == second_) return;
      second_ = second;
      update(kDot);
    });
    timer_.start();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x9a, 0xa8, 0x8c));
    painter.fillRect(kDot, second_ % 2 ? Qt::black : QColor(0x9a, 0xa8, 0x8c));
  }

 private:
  static constexpr QRect kDot{160, 60, 4, 12};
  QTimer timer_;
  int second_ = -1;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  FloorWindow window;
  window.show();
  return app.exec();
}
