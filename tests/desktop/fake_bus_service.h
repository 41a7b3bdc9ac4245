// A service on the session bus that a test plays.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <functional>
#include <vector>

namespace quillbox {

// Takes part in the bus from the test's event loop.
class FakeBusService : public QDBusVirtualObject {
 public:
  using Answer = std::function<QVariantList(const QDBusMessage& call)>;

  // `description` is what introspection gives, for callers that ask for it.
  FakeBusService(const QString& busAddress, const QString& name, const QString& path, Answer answer,
                 QString description = "");
  ~FakeBusService() override;

  // Owning the name is being there.
  void Appear();
  void Vanish();

  // Calls so far of this method.
  std::vector<QDBusMessage> Calls(const QString& method) const;

  // What becomes of calls from now on.
  enum class Mood { kAnswers, kRefuses, kSilent, kDies };
  void Be(Mood mood) { mood_ = mood; }
  // Answers the calls that it was silent at.
  void AnswerAtLast();

  // Tells those who listen.
  void Signal(const QString& signal);

  QString introspect(const QString&) const override { return description_; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  QDBusConnection Connect();
  void Die();

  const QString address_, name_, path_, description_;
  const Answer answer_;
  QDBusConnection connection_;
  Mood mood_ = Mood::kAnswers;
  std::vector<QDBusMessage> calls_, unanswered_;
};

// Handles events until it is so, long enough for any machine.
bool ComesAbout(const std::function<bool()>& wished);

}  // namespace quillbox
