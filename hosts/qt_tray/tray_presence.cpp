#include "qt_tray/tray_presence.h"

#include <chrono>
#include <utility>

namespace quillbox {
namespace {

using Host = StatusNotifierWatcher::Host;

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
  const bool unknown = watcher_.HostState() == Host::kUnknown;
  if (!unknown) patience_.stop();
  const bool another = std::exchange(asked_, watcher_.Owner()) != watcher_.Owner();
  if (another && unknown && !patience_.isActive()) patience_.start();
}

Tray TrayPresence::Find() const {
  const Host host = watcher_.HostState();
  if (host == Host::kThere)
    return {.Type = Tray::Kind::kStatusNotifier, .Service = watcher_.Owner()};
  const bool decided = current_.Type == Tray::Kind::kX11 || !patience_.isActive();
  if (x11_.Owner() != 0 && decided) {
    return {
        .Type = Tray::Kind::kX11, .Window = x11_.Owner(), .Announcements = x11_.Announcements()};
  }
  return {.Type = host == Host::kUnknown ? Tray::Kind::kUndecided : Tray::Kind::kNone};
}

void TrayPresence::Look() {
  BePatient();
  Tray found = Find();
  if (std::exchange(current_, found) != found) onChange_();
}

}  // namespace quillbox
