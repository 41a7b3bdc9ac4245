// The small window beside the tray, on the person's desktop.
#pragma once

#include <QImage>
#include <QPointer>
#include <QScreen>
#include <memory>

#include "platform/tooltip_window.h"
#include "qt_tray/tooltip_view.h"

namespace quillbox {

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
