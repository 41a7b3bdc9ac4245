// Whether an X11 tray is there, without asking Qt.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace quillbox {

// An X11 tray owns the selection _NET_SYSTEM_TRAY_S0; the server reports each change of owner.
// On other window systems there never is one.
class X11Tray : public QAbstractNativeEventFilter {
 public:
  // `onChange` runs from the event loop whenever the owner has changed, also from one tray to
  // another.
  explicit X11Tray(std::function<void()> onChange);
  ~X11Tray() override;

  bool Present() const { return owner_ != 0; }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  std::function<void()> onChange_;
  xcb_connection_t* connection_ = nullptr;
  std::uint32_t selection_ = 0;
  std::uint8_t selectionEvent_ = 0;
  std::uint32_t owner_ = 0;
};

}  // namespace quillbox
