#include "qt_tray/notification_service.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>

namespace quillbox {
namespace {

constexpr int kLongestWaitMs = 3000;
constexpr int kMostNumbers = 50;

QDBusMessage Call(const char* method) {
  const QString name = "org.freedesktop.Notifications";
  return QDBusMessage::createMethodCall(name, "/org/freedesktop/Notifications", name, method);
}

}  // namespace

QString BodyFor(const QString& text, bool serviceReadsMarkup) {
  if (!serviceReadsMarkup) return text;
  return QString(text).replace('&', "&amp;").replace('<', "&lt;").replace('>', "&gt;");
}

// Hands over the answer, or the error when there is none in time.
void NotificationService::Ask(const QDBusMessage& question,
                              std::function<void(const QDBusMessage&)> onAnswer) {
  auto* const pending = new QDBusPendingCallWatcher(
      QDBusConnection::sessionBus().asyncCall(question, kLongestWaitMs), &pending_);
  QObject::connect(pending, &QDBusPendingCallWatcher::finished,
                   [pending, then = std::move(onAnswer)] {
                     pending->deleteLater();
                     then(pending->reply());
                   });
}

void NotificationService::Show(const Balloon& balloon,
                               const std::function<void(const Balloon&)>& onRefused) {
  if (!QDBusConnection::sessionBus().isConnected()) return onRefused(balloon);
  Ask(Call("GetCapabilities"), [this, balloon, onRefused](const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage) return onRefused(balloon);
    Send(balloon, answer);
  });
}

void NotificationService::Send(const Balloon& balloon, const QDBusMessage& capabilities) {
  if (capabilities.service() != server_ || numbers_.size() >= kMostNumbers) numbers_.clear();
  server_ = capabilities.service();
  const bool markup = capabilities.arguments().value(0).toStringList().contains("body-markup");
  QDBusMessage notify = Call("Notify");
  notify << QString("Quillbox") << numbers_.value(balloon.Text, 0U) << QString("quillbox")
         << balloon.Title << BodyFor(balloon.Text, markup) << QStringList() << QVariantMap()
         << balloon.TimeoutMs;
  Ask(notify, [this, text = balloon.Text](const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.service() != server_) return;
    numbers_[text] = answer.arguments().value(0).toUInt();
  });
}

}  // namespace quillbox
