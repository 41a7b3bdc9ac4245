// The service at which icons of the StatusNotifier kind are registered, played by a test.
#pragma once

#include <QDBusVariant>

#include "desktop/fake_bus_service.h"

namespace quillbox {

class PlayedWatcher : public FakeBusService {
 public:
  explicit PlayedWatcher(const QString& busAddress)
      : FakeBusService(
            busAddress, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
            [this](const QDBusMessage& call) {
              if (call.member() != "Get") return QVariantList();
              const bool answer = HasHost && NoesBefore <= 0;
              if (HasHost && NoesBefore > 0) --NoesBefore;
              return QVariantList{QVariant::fromValue(QDBusVariant(answer))};
            },
            "<interface name='org.kde.StatusNotifierWatcher'>"
            "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/>"
            "<method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>"
            "</interface>") {}

  bool HasHost = false;  // that shows the icons
  int NoesBefore = 0;    // so often it says that it has none, before it says that it has
};

}  // namespace quillbox
