#include "desktop/fake_bus_service.h"

#include <QCoreApplication>
#include <QThread>
#include <utility>

namespace quillbox {

FakeBusService::FakeBusService(const QString& busAddress, const QString& name, const QString& path,
                               Answer answer, QString description)
    : address_(busAddress),
      name_(name),
      path_(path),
      description_(std::move(description)),
      answer_(std::move(answer)),
      connection_(Connect()) {}

FakeBusService::~FakeBusService() {
  QDBusConnection::disconnectFromBus(name_);
}

QDBusConnection FakeBusService::Connect() {
  QDBusConnection connection = QDBusConnection::connectToBus(address_, name_);
  connection.registerVirtualObject(path_, this, QDBusConnection::SubPath);
  return connection;
}

// Whoever waits for an answer is told that there will be none.
void FakeBusService::Die() {
  connection_ = QDBusConnection("none");  // the last one that holds it closes it
  QDBusConnection::disconnectFromBus(name_);
  connection_ = Connect();
}

void FakeBusService::Appear() {
  connection_.registerService(name_);
}

void FakeBusService::Vanish() {
  connection_.unregisterService(name_);
}

void FakeBusService::Signal(const QString& signal) {
  connection_.send(QDBusMessage::createSignal(path_, name_, signal));
}

void FakeBusService::AnswerAtLast() {
  mood_ = Mood::kAnswers;
  for (const QDBusMessage& call : std::exchange(unanswered_, {})) {
    connection_.send(call.createReply(answer_(call)));
  }
}

std::vector<QDBusMessage> FakeBusService::Calls(const QString& method) const {
  std::vector<QDBusMessage> found;
  for (const QDBusMessage& call : calls_) {
    if (call.member() == method) found.push_back(call);
  }
  return found;
}

bool FakeBusService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  if (message.member() == "Introspect") return false;
  calls_.push_back(message);
  switch (mood_) {
    case Mood::kAnswers:
      connection.send(message.createReply(answer_(message)));
      break;
    case Mood::kRefuses:
      connection.send(message.createErrorReply(QDBusError::Failed, "no"));
      break;
    case Mood::kSilent:
      unanswered_.push_back(message);
      break;
    case Mood::kDies:
      QMetaObject::invokeMethod(
          this, [this] { Die(); }, Qt::QueuedConnection);
      break;
  }
  return true;
}

bool ComesAbout(const std::function<bool()>& wished) {
  for (int tries = 0; tries < 1500; ++tries) {
    QCoreApplication::processEvents();
    if (wished()) return true;
    QThread::msleep(20);
  }
  return false;
}

}  // namespace quillbox
