#include "qt_tray/x11_tray.h"

#include <xcb/xfixes.h>

#include <QGuiApplication>
#include <string_view>
#include <utility>

#include "qt_tray/x11_server.h"

namespace quillbox {
namespace {

constexpr std::string_view kSelection = "_NET_SYSTEM_TRAY_S0";
constexpr std::uint32_t kChanges = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                   XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                   XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

xcb_window_t OwnerOf(xcb_connection_t* connection, xcb_atom_t selection) {
  const auto answer = Owned(xcb_get_selection_owner_reply(
      connection, xcb_get_selection_owner(connection, selection), nullptr));
  return answer ? answer->owner : xcb_window_t{XCB_WINDOW_NONE};
}

}  // namespace

X11Tray::X11Tray(std::function<void()> onChange)
    : onChange_(std::move(onChange)), connection_(ConnectionOfQt()) {
  if (connection_ == nullptr) return;
  const auto* const fixes = xcb_get_extension_data(connection_, &xcb_xfixes_id);
  if (fixes == nullptr || fixes->present == 0) return;
  selectionEvent_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
  // The server serves the extension only to who has said which version it knows.
  Owned(xcb_xfixes_query_version_reply(
      connection_, xcb_xfixes_query_version(connection_, XCB_XFIXES_MAJOR_VERSION, 0), nullptr));
  selection_ = AtomNamed(connection_, kSelection);
  manager_ = AtomNamed(connection_, "MANAGER");
  xcb_xfixes_select_selection_input(connection_, RootWindow(connection_), selection_, kChanges);
  qGuiApp->installNativeEventFilter(this);
  owner_ = OwnerOf(connection_, selection_);
}

X11Tray::~X11Tray() {
  if (connection_ != nullptr) qGuiApp->removeNativeEventFilter(this);
}

bool X11Tray::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t" || selectionEvent_ == 0) return false;
  const int code = static_cast<const xcb_generic_event_t*>(message)->response_type & 0x7F;
  if (code == selectionEvent_) {
    const auto* const change = static_cast<const xcb_xfixes_selection_notify_event_t*>(message);
    if (change->selection == selection_ && change->owner == XCB_WINDOW_NONE) Announced(0);
  }
  if (code == XCB_CLIENT_MESSAGE) {
    const auto* const told = static_cast<const xcb_client_message_event_t*>(message);
    if (told->type != manager_ || told->data.data32[1] != selection_) return false;
    ++announcements_;
    Announced(told->data.data32[2]);
  }
  return false;
}

void X11Tray::Announced(std::uint32_t owner) {
  owner_ = owner;
  onChange_();
}

}  // namespace quillbox
