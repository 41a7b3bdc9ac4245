// The tooltip window's widget: background, labels and frame.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QWidget>
#include <vector>

#include "platform/tooltip_window.h"

namespace quillbox {

QFont FontFor(const TooltipFont& font);

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

}  // namespace quillbox
