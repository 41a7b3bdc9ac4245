// Asking the X server over the connection that Qt has.
#pragma once

#include <xcb/xcb.h>

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
xcb_connection_t* ConnectionOfQt();

xcb_window_t RootWindow(xcb_connection_t* connection);

xcb_atom_t AtomNamed(xcb_connection_t* connection, std::string_view name);

}  // namespace quillbox
