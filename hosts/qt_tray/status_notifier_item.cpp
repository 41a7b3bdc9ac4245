#include "qt_tray/status_notifier_item.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPixmap>
#include <QStyleHints>
#include <QtEndian>
#include <utility>

#include "qt_base/window_system.h"
#include "qt_tray/dbus_menu.h"

namespace quillbox {

// As the protocol has it: rows from the top, each pixel four bytes, the alpha first.
struct ItemPicture {
  int Width = 0, Height = 0;
  QByteArray Pixels;
};
using ItemPictures = QList<ItemPicture>;

struct ItemTip {
  QString IconName;
  ItemPictures Pictures;
  QString Title, Text;
};

QDBusArgument& operator<<(QDBusArgument& out, const ItemPicture& picture) {
  out.beginStructure();
  out << picture.Width << picture.Height << picture.Pixels;
  out.endStructure();
  return out;
}

QDBusArgument& operator<<(QDBusArgument& out, const ItemTip& tip) {
  out.beginStructure();
  out << tip.IconName << tip.Pictures << tip.Title << tip.Text;
  out.endStructure();
  return out;
}

// The bus library wants both directions; nothing of this is ever read.
const QDBusArgument& operator>>(const QDBusArgument& in, ItemPicture&) {
  return in;
}
const QDBusArgument& operator>>(const QDBusArgument& in, ItemTip&) {
  return in;
}

namespace {

constexpr char kItemInterface[] = "org.kde.StatusNotifierItem";
constexpr char kPropertiesInterface[] = "org.freedesktop.DBus.Properties";
constexpr char kIntrospection[] = "org.freedesktop.DBus.Introspectable";
constexpr char kItemPath[] = "/StatusNotifierItem";
constexpr int kSizes[] = {16, 22, 24, 32, 44, 48, 64};

// A picture that is smaller than what was asked for comes as it is, once.
ItemPictures PicturesOf(const QIcon& icon) {
  ItemPictures pictures;
  for (const int size : kSizes) {
    const QImage image =
        icon.pixmap(QSize(size, size), 1).toImage().convertToFormat(QImage::Format_ARGB32);
    if (image.isNull()) continue;
    if (!pictures.isEmpty() && pictures.back().Width == image.width()) continue;
    QByteArray pixels(image.sizeInBytes(), Qt::Uninitialized);
    qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / 4, pixels.data());
    pictures.append({image.width(), image.height(), pixels});
  }
  return pictures;
}

template <class... Types>
void RegisterTypes() {
  (qDBusRegisterMetaType<Types>(), ...);
}

}  // namespace

StatusNotifierItem::StatusNotifierItem(Reports reports) : reports_(std::move(reports)) {
  RegisterTypes<ItemPicture, ItemPictures, ItemTip>();
}

// The path alone, without a name of the bus: GNOME's host watches a name, and when it hears of its
// owner later than of the item's properties it forgets those.
QString StatusNotifierItem::Appear() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!there_) there_ = bus.isConnected() && bus.registerVirtualObject(kItemPath, this);
  return there_ ? kItemPath : QString();
}

void StatusNotifierItem::Vanish() {
  if (std::exchange(there_, false)) QDBusConnection::sessionBus().unregisterObject(kItemPath);
}

void StatusNotifierItem::SetPicture(const QIcon& picture) {
  picture_ = picture;
  Signal("NewIcon");
}

void StatusNotifierItem::SetTip(const QString& tip) {
  if (std::exchange(tip_, tip) != tip) Signal("NewToolTip");
}

void StatusNotifierItem::Signal(const char* name) const {
  if (!there_) return;
  QDBusConnection::sessionBus().send(QDBusMessage::createSignal(kItemPath, kItemInterface, name));
}

QVariantMap StatusNotifierItem::Properties() const {
  return {{"Category", "ApplicationStatus"},
          {"Id", "quillbox"},
          {"Title", "Quillbox"},
          {"Status", "Active"},
          {"WindowId", 0},
          {"IconThemePath", ""},
          {"IconName", picture_.name()},
          {"IconPixmap", QVariant::fromValue(PicturesOf(picture_))},
          {"OverlayIconName", ""},
          {"OverlayIconPixmap", QVariant::fromValue(ItemPictures())},
          {"AttentionIconName", ""},
          {"AttentionIconPixmap", QVariant::fromValue(ItemPictures())},
          {"AttentionMovieName", ""},
          {"ToolTip", QVariant::fromValue(ItemTip{{}, {}, tip_, {}})},
          {"ItemIsMenu", false},
          {"Menu", QVariant::fromValue(QDBusObjectPath(DBusMenu::kPath))}};
}

QString StatusNotifierItem::introspect(const QString&) const {
  return R"xml(<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconThemePath" type="s" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="OverlayIconName" type="s" access="read"/>
  <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionIconName" type="s" access="read"/>
  <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionMovieName" type="s" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="Activate">
    <arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/>
  </method>
  <method name="SecondaryActivate">
    <arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/>
  </method>
  <method name="ContextMenu">
    <arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/>
  </method>
  <method name="Scroll">
    <arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/>
  </method>
  <signal name="NewIcon"/>
  <signal name="NewToolTip"/>
</interface>
)xml";
}

bool StatusNotifierItem::handleMessage(const QDBusMessage& call, const QDBusConnection& bus) {
  if (call.interface() == kPropertiesInterface) {
    bus.send(AnswerToProperties(call));
    if (reports_.Read) reports_.Read();
    return true;
  }
  static const QStringList kMethods = {"Activate", "SecondaryActivate", "ContextMenu", "Scroll"};
  if (call.interface() == kIntrospection) return false;
  if (!kMethods.contains(call.member())) {
    // Some hosts try methods of their own first, and go on only after this error.
    return bus.send(call.createErrorReply(QDBusError::UnknownMethod, "no method " + call.member()));
  }
  bus.send(call.createReply());
  Clicked(call.member());
  return true;
}

QDBusMessage StatusNotifierItem::AnswerToProperties(const QDBusMessage& call) {
  const QVariantMap properties = Properties();
  if (call.member() == "GetAll") return call.createReply(properties);
  const QString name = call.arguments().value(1).toString();
  if (call.member() == "Get" && properties.contains(name)) {
    return call.createReply(QVariant::fromValue(QDBusVariant(properties[name])));
  }
  return call.createErrorReply(QDBusError::InvalidArgs, "no such property to " + call.member());
}

// Most hosts show the menu that they were given. One that asks for it can have it where a menu of
// ours can be closed by a click elsewhere.
void StatusNotifierItem::Clicked(const QString& method) {
  if (method == "Activate") {
    const std::chrono::milliseconds doubleClick(
        QGuiApplication::styleHints()->mouseDoubleClickInterval());
    reports_.Mouse(activations_.Next(Activations::Clock::now(), doubleClick));
  }
  if (method == "SecondaryActivate" && OnX11Desktop()) reports_.Mouse(TrayMouse::kMove);
  if (method == "ContextMenu" && OnX11()) reports_.Mouse(TrayMouse::kRightDown);
}

}  // namespace quillbox
