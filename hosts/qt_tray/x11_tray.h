// Whether an X11 tray is there, without asking Qt.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace quillbox {

// An X11 tray owns the selection _NET_SYSTEM_TRAY_S0, of which the server reports each change, and
// tells all programs when it is ready: one that is asked earlier may give an icon no room. On other
// window systems there never is one.
class X11Tray : public QAbstractNativeEventFilter {
 public:
  // `onChange` runs from the event loop when a tray is ready, and when it is gone.
  explicit X11Tray(std::function<void()> onChange);
  ~X11Tray() override;

  // The tray's window; 0: there is none.
  std::uint32_t Owner() const { return owner_; }
  // How many have told so far that they are ready. An icon that was put in before is to be put in
  // anew.
  int Announcements() const { return announcements_; }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  void Announced(std::uint32_t owner);

  std::function<void()> onChange_;
  xcb_connection_t* connection_ = nullptr;
  std::uint32_t selection_ = 0, manager_ = 0;
  std::uint8_t selectionEvent_ = 0;
  std::uint32_t owner_ = 0;
  int announcements_ = 0;
};

}  // namespace quillbox
