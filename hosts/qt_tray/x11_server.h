// Asking the X server over the connection that Qt has.
#pragma once

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace quillbox {

// Answers of the server are the caller's to free.
template <class Answer>
std::unique_ptr<Answer, decltype(&std::free)> Owned(Answer* answer) {
  return {answer, &std::free};
}

// Null on other window systems.
inline xcb_connection_t* ConnectionOfQt() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

inline xcb_window_t RootWindow(xcb_connection_t* connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

inline xcb_atom_t AtomNamed(xcb_connection_t* connection, std::string_view name) {
  const auto answer = Owned(xcb_intern_atom_reply(
      connection,
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
      nullptr));
  return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace quillbox
