#include "qt_tray/x11_tray.h"

#include <xcb/xfixes.h>

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
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

namespace {

constexpr int kSide = 22;  // until the tray says otherwise
constexpr std::uint8_t kSeeThroughDepth = 32;

std::uint32_t NumberIn(xcb_window_t window, std::string_view name, xcb_atom_t type) {
  xcb_connection_t* const connection = ConnectionOfQt();
  const auto property = Owned(xcb_get_property_reply(
      connection, xcb_get_property(connection, 0, window, AtomNamed(connection, name), type, 0, 1),
      nullptr));
  if (!property || property->format != 32 || property->value_len < 1) return 0;
  return *static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
}

// Whether the tray wants windows with transparent pixels.
bool WantsSeeThrough(xcb_window_t tray) {
  const std::uint32_t visual = NumberIn(tray, "_NET_SYSTEM_TRAY_VISUAL", XCB_ATOM_VISUALID);
  const auto screens = xcb_setup_roots_iterator(xcb_get_setup(ConnectionOfQt()));
  for (auto depths = xcb_screen_allowed_depths_iterator(screens.data); depths.rem > 0;
       xcb_depth_next(&depths)) {
    const xcb_visualtype_t* const visuals = xcb_depth_visuals(depths.data);
    for (int i = 0; i < xcb_depth_visuals_length(depths.data); ++i) {
      if (visuals[i].visual_id == visual) return depths.data->depth == kSeeThroughDepth;
    }
  }
  return false;
}

}  // namespace

X11Dock::X11Dock(std::uint32_t tray, std::function<void(TrayMouse)> report)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint),
      report_(std::move(report)),
      seeThrough_(WantsSeeThrough(tray)) {
  setObjectName("TrayIcon");
  setAttribute(Qt::WA_TranslucentBackground, seeThrough_);
  setAttribute(Qt::WA_QuitOnClose, false);
  setMouseTracking(true);
  setMinimumSize(kSide, kSide);
  resize(kSide, kSide);
  qApp->installNativeEventFilter(this);
  AskToBeTakenIn(tray);
}

void X11Dock::AskToBeTakenIn(std::uint32_t tray) {
  constexpr std::uint32_t kRequestDock = 0;
  constexpr std::uint32_t kVersionAndMapped[] = {0, 1};
  xcb_connection_t* const connection = ConnectionOfQt();
  const auto window = static_cast<xcb_window_t>(winId());
  const xcb_atom_t info = AtomNamed(connection, "_XEMBED_INFO");
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, info, info, 32, 2,
                      kVersionAndMapped);
  if (!seeThrough_) {
    const std::uint32_t background = XCB_BACK_PIXMAP_PARENT_RELATIVE;
    xcb_change_window_attributes(connection, window, XCB_CW_BACK_PIXMAP, &background);
  }
  xcb_client_message_event_t request = {};
  request.response_type = XCB_CLIENT_MESSAGE;
  request.format = 32;
  request.window = tray;
  request.type = AtomNamed(connection, "_NET_SYSTEM_TRAY_OPCODE");
  request.data.data32[0] = XCB_CURRENT_TIME;
  request.data.data32[1] = kRequestDock;
  request.data.data32[2] = window;
  xcb_send_event(connection, 0, tray, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&request));
  xcb_flush(connection);
}

// Shown before, the icon would lie on the desktop, and some trays would not heed its size. Qt keeps
// this event from windows, so that it is caught before Qt looks at it.
bool X11Dock::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  const auto* const event = static_cast<const xcb_reparent_notify_event_t*>(message);
  if (type == "xcb_generic_event_t" && (event->response_type & 0x7F) == XCB_REPARENT_NOTIFY &&
      event->window == winId() && event->parent != RootWindow(ConnectionOfQt())) {
    QMetaObject::invokeMethod(this, &X11Dock::ShowInTray, Qt::QueuedConnection);
  }
  return false;
}

// The tray may have mapped the window already. Qt was deaf to what the server said of it then, and
// draws nothing until it hears it again.
void X11Dock::ShowInTray() {
  show();
  xcb_clear_area(ConnectionOfQt(), 1, static_cast<xcb_window_t>(winId()), 0, 0, 0, 0);
  xcb_flush(ConnectionOfQt());
}

void X11Dock::SetPicture(const QIcon& picture) {
  picture_ = picture;
  update();
}

// Qt doesn't know that its window was moved into another one. The server counts in real pixels;
// both agree on the screen's corner.
QRect X11Dock::Place() const {
  xcb_connection_t* const connection = ConnectionOfQt();
  const auto found = Owned(xcb_translate_coordinates_reply(
      connection,
      xcb_translate_coordinates(connection, static_cast<xcb_window_t>(winId()),
                                RootWindow(connection), 0, 0),
      nullptr));
  if (!found) return {};
  const QPoint corner = screen()->geometry().topLeft();
  const QPointF fromCorner = QPointF(QPoint(found->dst_x, found->dst_y) - corner);
  return {corner + (fromCorner / screen()->devicePixelRatio()).toPoint(), size()};
}

std::optional<QPoint> X11Dock::LastPlace(QPoint cursor) const {
  if (!Place().contains(cursor)) return std::nullopt;
  return lastPlace_;
}

// A cursor that jumps onto the icon enters without a move. Buttons are reported when they go down.
bool X11Dock::event(QEvent* event) {
  if (!event->isSinglePointEvent()) return QWidget::event(event);
  const auto* const mouse = static_cast<QSinglePointEvent*>(event);
  const bool left = mouse->button() == Qt::LeftButton;
  if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
    lastPlace_ = mouse->globalPosition().toPoint();
    report_(TrayMouse::kMove);
  }
  if (event->type() == QEvent::MouseButtonPress && left) report_(TrayMouse::kLeftDown);
  if (event->type() == QEvent::MouseButtonDblClick && left) report_(TrayMouse::kLeftDoubleClick);
  if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::RightButton) {
    report_(TrayMouse::kRightDown);
  }
  event->accept();
  return true;
}

// Where the tray doesn't mix, the server draws what lies behind, and the icon goes on top of that.
void X11Dock::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (seeThrough_) {
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  } else {
    const auto window = static_cast<xcb_window_t>(winId());
    xcb_clear_area(ConnectionOfQt(), 0, window, 0, 0, 0, 0);
    painter.drawPixmap(0, 0, screen()->grabWindow(window, 0, 0, width(), height()));
  }
  picture_.paint(&painter, rect());
}

}  // namespace quillbox
