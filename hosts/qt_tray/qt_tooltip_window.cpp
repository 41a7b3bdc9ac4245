#include "qt_tray/qt_tooltip_window.h"

#include <QCursor>
#include <QFontMetricsF>
#include <cmath>

#include "qt_base/spare_memory.h"
#include "qt_base/unicode_text.h"
#include "qt_tray/icon_surroundings.h"
#include "qt_tray/panel_rectangle.h"

namespace quillbox {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kMetresPerInch = 0.0254;

QSizeF TwipsPerPixel(const QScreen& screen) {
  return {kTwipsPerInch / screen.logicalDotsPerInchX(),
          kTwipsPerInch / screen.logicalDotsPerInchY()};
}

// Something with the screen's resolution to measure texts on.
QImage Canvas(const QScreen& screen) {
  QImage canvas(1, 1, QImage::Format_RGB32);
  canvas.setDotsPerMeterX(qRound(screen.logicalDotsPerInchX() / kMetresPerInch));
  canvas.setDotsPerMeterY(qRound(screen.logicalDotsPerInchY() / kMetresPerInch));
  return canvas;
}

// Without a place of its own the window comes up at the pointer.
QPoint PlaceOf(const TooltipPicture& picture, const QScreen& screen) {
  if (picture.Place) return {picture.Place->X, picture.Place->Y};
  return QCursor::pos() - screen.geometry().topLeft();
}

}  // namespace

// A label takes whole pixels.
TextSize QtTooltipWindow::Measure(std::string_view text, const TooltipFont& font) {
  const QImage canvas = Canvas(Screen());
  const QFontMetricsF metrics(FontFor(font), &canvas);
  const QSizeF twips = TwipsPerPixel(Screen());
  return {std::ceil(metrics.horizontalAdvance(ToUnicode(text))) * twips.width(),
          std::ceil(metrics.height()) * twips.height()};
}

TooltipSurroundings QtTooltipWindow::Surroundings() {
  screen_ = ScreenOfIcon();
  const QRect panel = PanelOn(*screen_);
  const QSizeF twips = TwipsPerPixel(*screen_);
  return {
      {panel.x(), panel.y(), panel.x() + panel.width(), panel.y() + panel.height()},
      {static_cast<double>(screen_->size().width()), static_cast<double>(screen_->size().height())},
      twips.width(),
      twips.height()};
}

void QtTooltipWindow::Show(const TooltipPicture& picture) {
  const QScreen& screen = Screen();
  const QSizeF twips = TwipsPerPixel(screen);
  view_ = std::make_unique<TooltipView>(picture, QSizeF(1 / twips.width(), 1 / twips.height()));
  view_->move(screen.geometry().topLeft() +
              WithinScreen(PlaceOf(picture, screen), view_->size(), screen.size()));
  view_->show();
}

void QtTooltipWindow::Close() {
  view_.reset();
  GiveBackSpareMemory();
}

QScreen& QtTooltipWindow::Screen() {
  if (screen_.isNull()) screen_ = ScreenOfIcon();
  return *screen_;
}

}  // namespace quillbox
