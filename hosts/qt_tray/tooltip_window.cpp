#include "qt_tray/tooltip_window.h"

#include <QCursor>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt_base/unicode_text.h"
#include "qt_base/window_system.h"
#include "qt_tray/icon_surroundings.h"

namespace quillbox {
namespace {

constexpr qreal kFrameStrength = 0.45;  // of the values' colour, over the background

QColor ColorOf(std::int32_t value) {
  return {value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF};
}

QSize PixelSizeOf(const TooltipPicture& picture, const QSizeF& pixelsPerTwip) {
  const auto pixels = [](qreal length) { return static_cast<int>(std::nearbyint(length)); };
  return {pixels(picture.Width * pixelsPerTwip.width()),
          pixels(picture.Height * pixelsPerTwip.height())};
}

}  // namespace

QFont FontFor(const TooltipFont& font) {
  QFont result(ToUnicode(font.Face));
  result.setPointSizeF(font.Points);
  result.setBold(font.Bold);
  return result;
}

TooltipView::TooltipView(const TooltipPicture& picture, const QSizeF& pixelsPerTwip)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      background_(picture.BackColor ? ColorOf(*picture.BackColor)
                                    : palette().color(QPalette::Window)),
      description_{FontFor(picture.DescriptionFont), ColorOf(picture.DescriptionFont.Color)},
      value_{FontFor(picture.ValueFont), ColorOf(picture.ValueFont.Color)} {
  setObjectName("TooltipWin");
  setWindowTitle("TooltipWin");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFixedSize(PixelSizeOf(picture, pixelsPerTwip));
  // Not as a pixmap: Qt would keep that after the window is gone.
  if (!picture.PictureFile.empty()) image_.load(QString::fromStdString(picture.PictureFile));
  for (const TooltipLabel& label : picture.Labels) {
    labels_.push_back({ToUnicode(label.Text),
                       label.Description,
                       {label.Left * pixelsPerTwip.width(), label.Top * pixelsPerTwip.height()}});
  }
}

void TooltipView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), background_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!image_.isNull()) painter.drawImage(QPointF(0, 0), image_);
  for (const Label& label : labels_) {
    const Style& style = label.Description ? description_ : value_;
    painter.setFont(style.Font);
    painter.setPen(style.Color);
    const qreal ascent = QFontMetricsF(style.Font, this).ascent();
    painter.drawText(OnScreenPixel(label.Place + QPointF(0, ascent)), label.Text);
  }
  PaintFrame(painter);
}

QPointF TooltipView::OnScreenPixel(const QPointF& place) const {
  const qreal ratio = devicePixelRatioF();
  return {std::round(place.x() * ratio) / ratio, std::round(place.y() * ratio) / ratio};
}

// One pixel of Qt's, in whole pixels of the screen, so that it's sharp at every scale.
void TooltipView::PaintFrame(QPainter& painter) const {
  const qreal ratio = devicePixelRatioF();
  const qreal thin = std::max(1.0, std::floor(ratio)) / ratio;
  QColor color = value_.Color;
  color.setAlphaF(static_cast<float>(kFrameStrength));
  const qreal w = width();
  const qreal h = height();
  painter.fillRect(QRectF(0, 0, w, thin), color);
  painter.fillRect(QRectF(0, h - thin, w, thin), color);
  painter.fillRect(QRectF(0, thin, thin, h - 2 * thin), color);
  painter.fillRect(QRectF(w - thin, thin, thin, h - 2 * thin), color);
}

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
