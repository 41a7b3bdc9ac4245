// Whether a StatusNotifier host is there, without asking Qt.
#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <functional>

namespace quillbox {

// Such hosts announce themselves to a service with a well-known name on the person's session bus.
// It can be there before any host is; Qt would then decide for the other kind of tray, for good.
class StatusNotifierTray : public QObject {
  Q_OBJECT

 public:
  // `onChange` runs from the event loop when Present has changed; a new service with a host in
  // place of the old one is a change to false and back.
  explicit StatusNotifierTray(std::function<void()> onChange);

  bool Present() const { return present_; }

 private Q_SLOTS:
  void AskForHost();

 private:
  void OwnerChanged(const QString& owner);
  void SetPresent(bool present);

  std::function<void()> onChange_;
  QDBusServiceWatcher watcher_;
  bool present_ = false;
};

}  // namespace quillbox
