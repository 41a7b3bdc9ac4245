// Which tray our icon is to stand in: that of a StatusNotifier host, or an X11 one.
#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <memory>

#include "qt_tray/x11_tray.h"

namespace quillbox {

// Watches the bus service at which tray icons and the hosts that show them meet. Never waits for
// it: it may be slow, or silent for good.
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

struct Tray {
  // kUndecided: the StatusNotifier service has still to say whether there is a host.
  enum class Kind { kNone, kUndecided, kX11, kStatusNotifier };

  bool IsThere() const { return Type == Kind::kX11 || Type == Kind::kStatusNotifier; }
  bool operator==(const Tray&) const = default;

  Kind Type = Kind::kNone;
  std::uint32_t Window = 0;  // of an X11 tray
  int Announcements = 0;     // as X11Tray has them
  QString Service = {};      // the StatusNotifier service's owner
};

// A StatusNotifier host comes before an X11 tray, whichever was first: many panels are both, and
// the icon is to be the same thing at each start. A service that has not answered holds up the X11
// tray for a moment only, and takes no icon away from it; its host gets the icon when it does
// answer.
class TrayPresence {
 public:
  // `onChange` runs from the event loop when Current has become another tray, or none.
  explicit TrayPresence(std::function<void()> onChange);

  const Tray& Current() const { return current_; }
  StatusNotifierWatcher& Watcher() { return watcher_; }

 private:
  Tray Find() const;
  void BePatient();
  void Look();

  std::function<void()> onChange_;
  StatusNotifierWatcher watcher_;
  X11Tray x11_;
  QTimer patience_;  // with a service that has not answered
  QString asked_;    // the owner for which it ran
  Tray current_;
};

}  // namespace quillbox
