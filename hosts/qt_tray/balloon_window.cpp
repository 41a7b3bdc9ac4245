#include "qt_tray/balloon_window.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "qt_tray/panel_rectangle.h"

namespace quillbox {
namespace {

constexpr int kWidth = 320;
constexpr int kMargin = 12;
constexpr int kLongestMs = 30000;

QLabel* Label(const QString& text, bool bold, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  QFont font = label->font();
  font.setBold(bold);
  label->setFont(font);
  return label;
}

// Above the icon, or below it where there is no room.
QPoint PlaceBeside(const QRect& icon, const QSize& size) {
  const QScreen* screen = QGuiApplication::screenAt(icon.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QPoint corner = screen->geometry().topLeft();
  const int above = icon.top() - size.height() - corner.y();
  const int below = icon.bottom() + 1 - corner.y();
  const QPoint place(icon.right() - size.width() - corner.x(), above >= 0 ? above : below);
  return corner + WithinScreen(place, size, screen->size());
}

}  // namespace

BalloonWindow::BalloonWindow(const Balloon& balloon, const QRect& icon)
    : QFrame(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
  setObjectName("Balloon");
  setWindowTitle("Balloon");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFrameShape(QFrame::Box);
  auto* const lines = new QVBoxLayout(this);
  lines->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  lines->addWidget(Label(balloon.Title, true, this));
  lines->addWidget(Label(balloon.Text, false, this));
  setFixedWidth(kWidth);
  resize(kWidth, lines->totalHeightForWidth(kWidth));
  move(PlaceBeside(icon, size()));
  QTimer::singleShot(std::clamp(balloon.TimeoutMs, 1, kLongestMs), this, &QWidget::hide);
  show();
}

}  // namespace quillbox
