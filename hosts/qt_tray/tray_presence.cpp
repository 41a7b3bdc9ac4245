#include "qt_tray/tray_presence.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <chrono>
#include <limits>
#include <utility>

namespace quillbox {
namespace {

constexpr char kService[] = "org.kde.StatusNotifierWatcher";  // also the interface's name
constexpr char kWatcherPath[] = "/StatusNotifierWatcher";
constexpr int kNoLimit = std::numeric_limits<int>::max();  // and with it no timer

// Never starts the service.
QDBusMessage Call(const char* interface, const char* method) {
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kWatcherPath, interface, method);
  call.setAutoStartService(false);
  return call;
}

// An error is a no, and so is anything that is no answer to the question.
bool IsYes(const QDBusMessage& answer) {
  const QVariant value = answer.arguments().value(0).value<QDBusVariant>().variant();
  return answer.type() == QDBusMessage::ReplyMessage && value.typeId() == QMetaType::Bool &&
         value.toBool();
}

}  // namespace

StatusNotifierWatcher::StatusNotifierWatcher(std::function<void()> onChange)
    : onChange_(std::move(onChange)),
      names_(kService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  connect(&names_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& owner) { OwnerChanged(owner); });
  for (const char* const signal :
       {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus.connect(kService, kWatcherPath, kService, signal, this, SLOT(AskForHost()));
  }
  // It is the bus itself that answers this.
  owner_ = bus.interface()->serviceOwner(kService).value();
  if (!owner_.isEmpty()) host_ = Host::kUnknown;
  AskForHost();
}

void StatusNotifierWatcher::OwnerChanged(const QString& owner) {
  if (owner == owner_) return;
  owner_ = owner;
  question_.reset();
  host_ = owner.isEmpty() ? Host::kNone : Host::kUnknown;
  Register();
  AskForHost();
  onChange_();
}

void StatusNotifierWatcher::AskForHost() {
  if (owner_.isEmpty()) return;
  QDBusMessage question = Call("org.freedesktop.DBus.Properties", "Get");
  question << QString(kService) << QString("IsStatusNotifierHostRegistered");
  auto* const pending =
      new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question, kNoLimit));
  question_.reset(pending);
  connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
    question_.release()->deleteLater();
    SetHost(IsYes(pending->reply()) ? Host::kThere : Host::kNone);
  });
}

void StatusNotifierWatcher::SetHost(Host host) {
  if (std::exchange(host_, host) != host) onChange_();
}

void StatusNotifierWatcher::Offer(const QString& item) {
  if (item == item_) return;
  item_ = item;
  Register();
}

void StatusNotifierWatcher::Register() {
  if (owner_.isEmpty() || item_.isEmpty()) return;
  QDBusConnection::sessionBus().send(Call(kService, "RegisterStatusNotifierItem") << item_);
}

namespace {

using IconHost = StatusNotifierWatcher::Host;

constexpr std::chrono::milliseconds kPatience(1000);

}  // namespace

TrayPresence::TrayPresence(std::function<void()> onChange)
    : onChange_(std::move(onChange)), watcher_([this] { Look(); }), x11_([this] {
        watcher_.AskForHost();
        Look();
      }) {
  patience_.setSingleShot(true);
  patience_.setInterval(kPatience);
  QObject::connect(&patience_, &QTimer::timeout, [this] { Look(); });
  BePatient();
  current_ = Find();
}

// Once with each owner of the service's name, and no longer with those that come and go quickly.
void TrayPresence::BePatient() {
  const bool unknown = watcher_.HostState() == IconHost::kUnknown;
  if (!unknown) patience_.stop();
  const bool another = std::exchange(asked_, watcher_.Owner()) != watcher_.Owner();
  if (another && unknown && !patience_.isActive()) patience_.start();
}

Tray TrayPresence::Find() const {
  const IconHost host = watcher_.HostState();
  if (host == IconHost::kThere)
    return {.Type = Tray::Kind::kStatusNotifier, .Service = watcher_.Owner()};
  const bool decided = current_.Type == Tray::Kind::kX11 || !patience_.isActive();
  if (x11_.Owner() != 0 && decided) {
    return {
        .Type = Tray::Kind::kX11, .Window = x11_.Owner(), .Announcements = x11_.Announcements()};
  }
  return {.Type = host == IconHost::kUnknown ? Tray::Kind::kUndecided : Tray::Kind::kNone};
}

void TrayPresence::Look() {
  BePatient();
  Tray found = Find();
  if (std::exchange(current_, found) != found) onChange_();
}

}  // namespace quillbox
