#include "desktop/docked_icons.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillbox {
namespace {

template <class Answer>
std::unique_ptr<Answer, decltype(&std::free)> Owned(Answer* answer) {
  return {answer, &std::free};
}

class Windows {
 public:
  explicit Windows(const QString& display)
      : connection_(xcb_connect(display.toUtf8().constData(), nullptr)) {}
  ~Windows() { xcb_disconnect(connection_); }
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

  xcb_window_t Root() const {
    if (xcb_connection_has_error(connection_) != 0) return XCB_WINDOW_NONE;
    return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  }

  std::vector<xcb_window_t> Children(xcb_window_t window) const {
    const auto tree =
        Owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
    if (!tree) return {};
    const xcb_window_t* const first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
  }

  // Instance and class, each with its end.
  std::string Class(xcb_window_t window) const {
    const auto property = Owned(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64),
        nullptr));
    if (!property) return "";
    return {static_cast<const char*>(xcb_get_property_value(property.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(property.get()))};
  }

  bool IsOurs(xcb_window_t window) const { return Class(window).starts_with("quillbox"); }

  bool IsViewable(xcb_window_t window) const {
    const auto attributes = Owned(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
  }

  bool BypassesWindowManager(xcb_window_t window) const {
    const auto attributes = Owned(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return attributes && attributes->override_redirect != 0;
  }

  bool IsTip(xcb_window_t window) const {
    const auto property = Owned(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window, Atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 0, 1),
        nullptr));
    if (!property || xcb_get_property_value_length(property.get()) == 0) return false;
    return *static_cast<const xcb_atom_t*>(xcb_get_property_value(property.get())) ==
           Atom("_NET_WM_WINDOW_TYPE_TOOLTIP");
  }

  QPoint Centre(xcb_window_t window) const {
    const auto place =
        Owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    if (!place) return {};
    const auto onScreen = Owned(xcb_translate_coordinates_reply(
        connection_,
        xcb_translate_coordinates(connection_, window, Root(),
                                  static_cast<std::int16_t>(place->width / 2),
                                  static_cast<std::int16_t>(place->height / 2)),
        nullptr));
    return onScreen ? QPoint(onScreen->dst_x, onScreen->dst_y) : QPoint();
  }

 private:
  xcb_atom_t Atom(std::string_view name) const {
    const auto atom = Owned(xcb_intern_atom_reply(
        connection_,
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  xcb_connection_t* connection_;
};

}  // namespace

std::vector<QPoint> DockedIcons(const QString& display) {
  const Windows windows(display);
  std::vector<QPoint> icons;
  const std::function<void(xcb_window_t, bool)> look = [&](xcb_window_t window, bool inTray) {
    for (const xcb_window_t child : windows.Children(window)) {
      const bool ours = windows.IsOurs(child);
      if (inTray && ours && windows.IsViewable(child)) icons.push_back(windows.Centre(child));
      look(child, inTray || windows.Class(child).find("trayer") != std::string::npos);
    }
  };
  look(windows.Root(), false);
  return icons;
}

bool MenuIsOpen(const QString& display) {
  const Windows windows(display);
  for (const xcb_window_t window : windows.Children(windows.Root())) {
    if (windows.IsOurs(window) && windows.IsViewable(window) &&
        windows.BypassesWindowManager(window) && !windows.IsTip(window)) {
      return true;
    }
  }
  return false;
}

}  // namespace quillbox
