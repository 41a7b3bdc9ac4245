// The icon as an object on the bus, for hosts that draw it themselves.
#pragma once

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QIcon>
#include <QString>
#include <chrono>
#include <functional>
#include <optional>

#include "platform/host.h"

namespace quillbox {

// Tells a double click from the activations of which alone some trays tell.
class Activations {
 public:
  using Clock = std::chrono::steady_clock;

  // What this activation stands for: the second one within the time of a double click is one, and
  // the next one after it begins anew.
  TrayMouse Next(Clock::time_point now, std::chrono::milliseconds doubleClickTime) {
    const bool second = first_ && now - *first_ <= doubleClickTime;
    first_ = second ? std::nullopt : std::optional(now);
    return second ? TrayMouse::kLeftDoubleClick : TrayMouse::kLeftDown;
  }

 private:
  std::optional<Clock::time_point> first_;
};

// A StatusNotifier host reports no movement, and of the left button only that the icon was
// activated; a click with the middle button stands for the cursor that comes over the icon.
class StatusNotifierItem : public QDBusVirtualObject {
 public:
  struct Reports {
    std::function<void(TrayMouse)> Mouse;
    std::function<void()> Read;  // somebody looks at the icon: a host, most likely
  };

  explicit StatusNotifierItem(Reports reports);
  ~StatusNotifierItem() override { Vanish(); }

  // The path at which it is on the bus while it is shown, which hosts are told. Empty without a
  // bus.
  QString Appear();
  void Vanish();

  void SetPicture(const QIcon& picture);
  // Plain text, lines end in LF.
  void SetTip(const QString& tip);

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override;

 private:
  QVariantMap Properties() const;
  QDBusMessage AnswerToProperties(const QDBusMessage& call);
  void Clicked(const QString& method);
  void Signal(const char* name) const;

  const Reports reports_;
  Activations activations_;
  QIcon picture_;
  QString tip_;
  bool there_ = false;
};

}  // namespace quillbox
