// The small window beside the tray, on the person's desktop.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QPointer>
#include <QScreen>
#include <QSizeF>
#include <QString>
#include <QWidget>
#include <memory>
#include <vector>

#include "platform/tooltip_window.h"

namespace quillbox {

QFont FontFor(const TooltipFont& font);

// The widget: background, labels and frame.
class TooltipView : public QWidget {
 public:
  // `pixelsPerTwip`: Qt's pixels.
  TooltipView(const TooltipPicture& picture, const QSizeF& pixelsPerTwip);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Style {
    QFont Font;
    QColor Color;
  };
  struct Label {
    QString Text;
    bool Description = false;
    QPointF Place;  // its top left corner
  };

  // The screen's own pixel that is nearest: texts between two of them are blurred.
  QPointF OnScreenPixel(const QPointF& place) const;

  void PaintFrame(QPainter& painter) const;

  QColor background_;
  QImage image_;  // null: none
  Style description_, value_;
  std::vector<Label> labels_;
};

// The port's pixels are Qt's, here and in Surroundings: on a screen with a scale of 2 each of them
// is four of the screen's, and the painting makes use of all four. Thus margins keep their look on
// every screen.
class QtTooltipWindow : public TooltipWindow {
 public:
  TextSize Measure(std::string_view text, const TooltipFont& font) override;
  TooltipSurroundings Surroundings() override;
  void Show(const TooltipPicture& picture) override;
  void Close() override;

 private:
  QScreen& Screen();

  QPointer<QScreen> screen_;  // as Surroundings found it; it may be unplugged
  std::unique_ptr<TooltipView> view_;
};

}  // namespace quillbox
