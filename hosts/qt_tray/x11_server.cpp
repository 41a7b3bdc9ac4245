#include "qt_tray/x11_server.h"

#include <QGuiApplication>
#include <cstdint>

namespace quillbox {

xcb_connection_t* ConnectionOfQt() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

xcb_window_t RootWindow(xcb_connection_t* connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t AtomNamed(xcb_connection_t* connection, std::string_view name) {
  const auto answer = Owned(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
      nullptr));
  return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace quillbox
