// The skinned window beside the taskbar.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/tooltip_window.h"
#include "windows/windows_tray.h"
#include "windows_base/picture.h"

namespace quillbox {

// Where a tray stands that isn't the system's taskbar: the strip from the nearest edge of the
// screen to the far side of an icon of `iconSize` pixels below the pointer. Both count from the
// screen's corner.
PixelRect StripBelow(POINT pointer, SIZE screen, int iconSize);

class WindowsTooltip : public TooltipWindow {
 public:
  // `tray` must outlive the window.
  explicit WindowsTooltip(const WindowsTray& tray) : tray_(tray) {}
  ~WindowsTooltip() override { Close(); }
  WindowsTooltip(const WindowsTooltip&) = delete;
  WindowsTooltip& operator=(const WindowsTooltip&) = delete;

  TextSize Measure(std::string_view text, const TooltipFont& font) override;
  TooltipSurroundings Surroundings() override;
  void Show(const TooltipPicture& picture) override;
  void Close() override;

 private:
  struct Style {
    OwnedFont Font;
    COLORREF Color = 0;
  };
  struct Label {
    std::wstring Text;
    bool Description = false;
    POINT Place{};
  };

  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wide, LPARAM long_);
  void Paint(HWND window) const;
  void Draw(HDC canvas, const RECT& area) const;
  void LookAtScreen();
  int Pixels(double twips) const;

  const WindowsTray& tray_;
  HMONITOR monitor_ = nullptr;  // the icon's
  RECT screen_{};
  UINT dpi_ = 0;
  HWND window_ = nullptr;
  OwnedBitmap image_;
  COLORREF background_ = 0;
  Style description_, value_;
  std::vector<Label> labels_;
};

}  // namespace quillbox
