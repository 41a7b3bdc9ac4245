#include "qt_tray/status_notifier_tray.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <utility>

namespace quillbox {
namespace {

constexpr char kService[] = "org.kde.StatusNotifierWatcher";  // also the interface's name
constexpr char kPath[] = "/StatusNotifierWatcher";
constexpr int kLongestWaitMs = 1000;

// Never starts the service.
QDBusMessage HostQuestion() {
  QDBusMessage question =
      QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
  question.setAutoStartService(false);
  question << QString(kService) << QString("IsStatusNotifierHostRegistered");
  return question;
}

// An error is a no.
bool IsYes(const QDBusMessage& answer) {
  const QVariant value = answer.arguments().value(0);
  return answer.type() == QDBusMessage::ReplyMessage &&
         value.value<QDBusVariant>().variant().toBool();
}

}  // namespace

StatusNotifierTray::StatusNotifierTray(std::function<void()> onChange)
    : onChange_(std::move(onChange)),
      watcher_(kService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& owner) { OwnerChanged(owner); });
  for (const char* const signal :
       {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus.connect(kService, kPath, kService, signal, this, SLOT(AskForHost()));
  }
  present_ = IsYes(bus.call(HostQuestion(), QDBus::Block, kLongestWaitMs));
}

void StatusNotifierTray::OwnerChanged(const QString& owner) {
  SetPresent(false);
  if (!owner.isEmpty()) AskForHost();
}

void StatusNotifierTray::AskForHost() {
  auto* const pending = new QDBusPendingCallWatcher(
      QDBusConnection::sessionBus().asyncCall(HostQuestion(), kLongestWaitMs), this);
  connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
    pending->deleteLater();
    SetPresent(IsYes(pending->reply()));
  });
}

void StatusNotifierTray::SetPresent(bool present) {
  if (present == present_) return;
  present_ = present;
  onChange_();
}

}  // namespace quillbox
