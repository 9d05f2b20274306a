#include "shell/window/device_accessible.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QFile>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QXmlStreamReader>
#include <array>

#include "keys/key_objects.h"
#include "shell/pictures/picture_sources.h"
#include "shell/window/device_window.h"

namespace nautrix {
namespace {

// The seven keys as the case prints them; the two round keys carry no print
// and are named by what they do. The binding is the computer's key for it.
struct KeyFace {
  int key;
  const char* name;
  const char* binding;
};
constexpr KeyFace kKeys[] = {
    {kGameAKey, "GAME A", "1"},
    {kGameBKey, "GAME B", "2"},
    {kTimeKey, "TIME", "T"},
    {kAlarmKey, "ALARM", "A"},
    {kAclKey, "ACL", "R"},
    {kLeftKey, "Walk back, set hour", "Left"},
    {kRightKey, "Walk forward, set minute", "Right"},
};
constexpr int kChildren = 1 + static_cast<int>(std::size(kKeys));  // the readout first

// The readout's digits and its AM and PM marks.
constexpr Rect kReadoutRect{149, 52, 57, 13};

bool PartOfReadout(Obj o) {
  switch (o) {
    case Obj::HourDigit0: case Obj::HourDigit1: case Obj::MinuteDigit0:
    case Obj::MinuteDigit1: case Obj::am: case Obj::pm:
      return true;
    default:
      return false;
  }
}

class DeviceAccessible;

// A part of the device window that is no widget of its own: the readout
// (index 0) or a key.
class PartAccessible : public QAccessibleInterface,
                       public QAccessibleTextInterface,
                       public QAccessibleActionInterface {
 public:
  PartAccessible(DeviceAccessible& device, int index) : device_(device), index_(index) {}

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text t) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override {
    return IsReadout() ? QAccessible::EditableText : QAccessible::Button;
  }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType t) override {
    if (t == QAccessible::TextInterface && IsReadout())
      return static_cast<QAccessibleTextInterface*>(this);
    if (t == QAccessible::ActionInterface && !IsReadout())
      return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  // The readout: one line of text that nobody edits or selects.
  void selection(int, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int) override {}
  QString text(int start, int end) const override {
    const QString all = Readout();
    if (end < 0 || end > all.size()) end = all.size();
    return start < 0 || start >= end ? QString() : all.mid(start, end - start);
  }
  int characterCount() const override { return static_cast<int>(Readout().size()); }
  QRect characterRect(int) const override { return rect(); }
  int offsetAtPoint(const QPoint&) const override { return -1; }
  void scrollToSubstring(int, int) override {}
  QString attributes(int, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return QString();
  }

  // A key: pressed as by a click on it.
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& action) override;
  QStringList keyBindingsForAction(const QString& action) const override {
    if (action != pressAction()) return {};
    return {QString::fromLatin1(kKeys[index_ - 1].binding)};
  }

  bool IsReadout() const { return index_ == 0; }
  QString Readout() const;

 private:
  Obj KeyObject() const { return kKeyLooks[kKeys[index_ - 1].key].object; }

  DeviceAccessible& device_;
  int index_;
};

// The device window: a frame that holds the readout and the keys, and that
// says when its back is turned to the user.
class DeviceAccessible : public QAccessibleWidget {
 public:
  DeviceAccessible(DeviceWindow& window, Form1& form)
      : QAccessibleWidget(&window, QAccessible::Window), window_(&window), form_(form) {
    for (int i = 0; i < kChildren; ++i) {
      auto* part = new PartAccessible(*this, i);
      parts_[i] = part;
      ids_[i] = QAccessible::registerAccessibleInterface(part);
    }
  }
  ~DeviceAccessible() override {
    for (const QAccessible::Id id : ids_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return kChildren; }
  QAccessibleInterface* child(int index) const override {
    return index >= 0 && index < kChildren ? parts_[index] : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < kChildren; ++i) {
      if (parts_[i] == child) return i;
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    for (PartAccessible* part : parts_) {
      if (part->rect().contains(x, y) && !part->state().invisible) return part;
    }
    return nullptr;
  }
  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Description && BackShown())
      return QStringLiteral("The back of the device is shown; double-click it or press B to "
                            "turn it over.");
    return QAccessibleWidget::text(t);
  }

  bool BackShown() const { return form_.IsVisible(Obj::BackCase); }
  DeviceWindow* Window() const { return window_; }
  Form1& form() const { return form_; }

  // Called for every object that changes; what the user hears is decided
  // once the device's event is over, so a readout that is redrawn digit by
  // digit is told once, whole.
  void Changed(Obj o) {
    if (!PartOfReadout(o) && o != Obj::BackCase) return;
    if (pending_) return;
    pending_ = true;
    QTimer::singleShot(0, window_, [this] { Tell(); });
  }

 private:
  void Tell() {
    pending_ = false;
    const QString readout = parts_[0]->Readout();
    if (readout != told_readout_) {
      QAccessibleTextUpdateEvent update(parts_[0], 0, told_readout_, readout);
      QAccessible::updateAccessibility(&update);
      told_readout_ = readout;
    }
    if (BackShown() != told_back_) {
      told_back_ = BackShown();
      QAccessibleEvent described(this, QAccessible::DescriptionChanged);
      QAccessible::updateAccessibility(&described);
      QAccessible::State invisible;
      invisible.invisible = true;
      for (PartAccessible* part : parts_) {
        QAccessibleStateChangeEvent hidden(part, invisible);
        QAccessible::updateAccessibility(&hidden);
      }
    }
  }

  QPointer<DeviceWindow> window_;
  Form1& form_;
  std::array<PartAccessible*, kChildren> parts_{};
  std::array<QAccessible::Id, kChildren> ids_{};
  bool pending_ = false;
  QString told_readout_;
  bool told_back_ = false;
};

bool PartAccessible::isValid() const { return device_.isValid(); }
QWindow* PartAccessible::window() const { return device_.window(); }
QAccessibleInterface* PartAccessible::parent() const { return &device_; }

QString PartAccessible::Readout() const {
  return QString::fromStdString(device_.form().ReadoutText());
}

QString PartAccessible::text(QAccessible::Text t) const {
  if (IsReadout()) {
    if (t == QAccessible::Name) return QStringLiteral("Time or score");
    if (t == QAccessible::Value) return Readout();
    return QString();
  }
  // The tooltip tells more only for the round keys.
  const QString name = QString::fromLatin1(kKeys[index_ - 1].name);
  const QString tip = QString::fromLatin1(Info(KeyObject()).tooltip);
  if (t == QAccessible::Name) return name;
  if (t == QAccessible::Description) return tip == name ? QString() : tip;
  if (t == QAccessible::Accelerator) return QString::fromLatin1(kKeys[index_ - 1].binding);
  return QString();
}

QRect PartAccessible::rect() const {
  const DeviceWindow* window = device_.Window();
  if (!window) return QRect();
  const Rect r = IsReadout() ? kReadoutRect : device_.form().ObjectRect(KeyObject());
  return QRect(window->mapToGlobal(QPoint(r.left, r.top)), QSize(r.width, r.height));
}

QAccessible::State PartAccessible::state() const {
  QAccessible::State state;
  state.invisible = device_.BackShown();
  if (IsReadout()) {
    state.readOnly = true;
  } else {
    state.pressed = KeyIsDown(device_.form(), kKeys[index_ - 1].key);
  }
  return state;
}

// A press and a release of the left button at the key's middle, through the
// window's own pointer route, so the key acts exactly as under a click.
void PartAccessible::doAction(const QString& action) {
  DeviceWindow* window = device_.Window();
  if (action != pressAction() || !window || device_.BackShown()) return;
  const Rect r = device_.form().ObjectRect(KeyObject());
  const QPointF local(r.left + r.width / 2, r.top + r.height / 2);
  const QPointF global = local + QPointF(window->ClientPos());
  QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(window, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton,
                      Qt::NoModifier);
  QCoreApplication::sendEvent(window, &release);
}

// Headings and drawings of the leaflet's pages; their print is read from
// the pages themselves, so what is heard is what is printed.
struct PageWords {
  const char* title;
  const char* shows;
};
constexpr PageWords kPages[] = {
    {"Cover", "The family's name and the game's name over a drawing of the open device, "
              "its parts named on either side."},
    {"Inserting the batteries", "Steps for changing the two button cells, with drawings of "
                                "the battery lid."},
    {"Time setting and alarm set", "How the clock and the alarm are set, with small drawings "
                                   "of the screen."},
    {"Game A", "The rules of the game, with a drawing of the diver's five steps."},
    {"Game A, continued, and Game B", "The rest of the rules, and how Game B differs."},
    {"Cautions", "A numbered list of cautions."},
    {"Cautions, continued", "The end of the list, over two drawings."},
    {"Specifications", "A short list of the device's data, with a drawing of its size."},
    {"Using keyboard", "The computer's keys for the main window and for this leaflet."},
};

int PageIndex(int page) { return (page < 1 ? 1 : page > 9 ? 9 : page) - 1; }

// Every line of print on the page, in the order it is printed.
QString PagePrint(int page) {
  QFile file(QString::fromLatin1(PageResource(page)));
  if (!file.open(QIODevice::ReadOnly)) return QString();
  QXmlStreamReader svg(&file);
  QStringList lines;
  while (!svg.atEnd()) {
    if (svg.readNext() == QXmlStreamReader::StartElement && svg.name() == QLatin1String("text"))
      lines << svg.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
  }
  return lines.join(QLatin1Char(' '));
}

}  // namespace

void InstallDeviceAccessible(DeviceWindow& window, Form1& form) {
  QAccessible::registerAccessibleInterface(new DeviceAccessible(window, form));
}

void DeviceAccessibleChanged(DeviceWindow& window, Obj o) {
  if (!QAccessible::isActive()) return;
  if (auto* device = dynamic_cast<DeviceAccessible*>(QAccessible::queryAccessibleInterface(&window)))
    device->Changed(o);
}

QString LeafletPageName(int page) {
  return QStringLiteral("Page %1: %2")
      .arg(PageIndex(page) + 1)
      .arg(QLatin1String(kPages[PageIndex(page)].title));
}

QString LeafletPageDescription(int page) {
  return QString::fromLatin1(kPages[PageIndex(page)].shows) + QLatin1Char(' ') + PagePrint(page);
}

}  // namespace nautrix
