// The bus service at which tray icons and the hosts that show them meet.
#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>
#include <functional>
#include <memory>

namespace quillbox {

// Never waits for the service: it may be slow, or silent for good.
class StatusNotifierWatcher : public QObject {
  Q_OBJECT

 public:
  // Whether a host is there that shows icons. kUnknown: the service has not answered yet, which is
  // not a no.
  enum class Host { kNone, kUnknown, kThere };

  // `onChange` runs from the event loop when HostState or Owner has changed.
  explicit StatusNotifierWatcher(std::function<void()> onChange);

  Host HostState() const { return host_; }
  // Of the service's name; empty when there is none. Another one knows nothing of what the last one
  // was told.
  const QString& Owner() const { return owner_; }

  // The path of the item that the service is told of, now and whenever it is a new one. Hosts that
  // come later learn it from the service.
  void Offer(const QString& item);
  // Nothing is offered any more. Hosts keep what they show until the connection to the bus ends.
  void Withdraw() { item_.clear(); }

 public Q_SLOTS:
  // Asks anew for a host, since not every service tells when one comes. What is known stays until
  // the answer.
  void AskForHost();

 private:
  void OwnerChanged(const QString& owner);
  void SetHost(Host host);
  void Register();

  std::function<void()> onChange_;
  QDBusServiceWatcher names_;
  QString owner_, item_;
  std::unique_ptr<QDBusPendingCallWatcher> question_;  // that is not answered yet
  Host host_ = Host::kNone;
};

}  // namespace quillbox
