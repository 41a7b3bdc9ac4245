#include "windows/windows_tooltip.h"

#include <shellscalingapi.h>

#include <algorithm>
#include <cmath>

#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

constexpr wchar_t kWindowClass[] = L"QuillboxTooltipWin";
constexpr double kTwipsPerInch = 1440;
constexpr double kPointsPerInch = 72;
constexpr int kUsualDpi = 96;
constexpr int kFrameStrength = 45;  // of the values' colour over the background, in percent

OwnedFont FontFor(const TooltipFont& font, UINT dpi) {
  LOGFONTW wanted{};
  wanted.lfHeight = -static_cast<LONG>(std::lround(font.Points * dpi / kPointsPerInch));
  wanted.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
  wanted.lfCharSet = DEFAULT_CHARSET;
  wanted.lfQuality = CLEARTYPE_QUALITY;
  const std::wstring face = WideOfCodePage(font.Face);
  std::copy_n(face.begin(), std::min<std::size_t>(face.size(), LF_FACESIZE - 1), wanted.lfFaceName);
  return OwnedFont(::CreateFontIndirectW(&wanted));
}

BYTE Mixed(BYTE over, BYTE below) {
  return static_cast<BYTE>((over * kFrameStrength + below * (100 - kFrameStrength)) / 100);
}

COLORREF Mixed(COLORREF over, COLORREF below) {
  return RGB(Mixed(GetRValue(over), GetRValue(below)), Mixed(GetGValue(over), GetGValue(below)),
             Mixed(GetBValue(over), GetBValue(below)));
}

// The taskbar that lies on this monitor, in pixels of the desktop. One that hides itself is there
// while the pointer rests on its icon.
std::optional<RECT> TaskbarOn(HMONITOR monitor) {
  for (const wchar_t* const name : {L"Shell_TrayWnd", L"Shell_SecondaryTrayWnd"}) {
    HWND bar = nullptr;
    while ((bar = ::FindWindowExW(nullptr, bar, name, nullptr)) != nullptr) {
      RECT place{};
      if (::IsWindowVisible(bar) && ::GetWindowRect(bar, &place) && !::IsRectEmpty(&place) &&
          ::MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST) == monitor) {
        return place;
      }
    }
  }
  return std::nullopt;
}

}  // namespace

PixelRect StripBelow(POINT pointer, SIZE screen, int iconSize) {
  const int right = screen.cx;
  const int bottom = screen.cy;
  const int half = iconSize / 2;
  const int toBottom = bottom - pointer.y;
  const int toRight = right - pointer.x;
  const int nearest =
      std::min({static_cast<int>(pointer.x), static_cast<int>(pointer.y), toBottom, toRight});
  if (nearest == toBottom) return {0, pointer.y - half, right, bottom};
  if (nearest == pointer.y) return {0, 0, right, pointer.y + half};
  if (nearest == toRight) return {pointer.x - half, 0, right, bottom};
  return {0, 0, pointer.x + half, bottom};
}

void WindowsTooltip::LookAtScreen() {
  POINT point{};
  ::GetCursorPos(&point);
  if (const std::optional<RECT> icon = tray_.IconPlace()) {
    point = {(icon->left + icon->right) / 2, (icon->top + icon->bottom) / 2};
  }
  monitor_ = ::MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST);
  MONITORINFO info{};
  info.cbSize = sizeof info;
  ::GetMonitorInfoW(monitor_, &info);
  screen_ = info.rcMonitor;
  UINT across = 0;
  if (::GetDpiForMonitor(monitor_, MDT_EFFECTIVE_DPI, &across, &dpi_) != S_OK || dpi_ == 0) {
    dpi_ = ::GetDpiForSystem();
  }
}

TooltipSurroundings WindowsTooltip::Surroundings() {
  LookAtScreen();
  const SIZE size{screen_.right - screen_.left, screen_.bottom - screen_.top};
  TooltipSurroundings found;
  if (const std::optional<RECT> bar = TaskbarOn(monitor_)) {
    found.Taskbar = {bar->left - screen_.left, bar->top - screen_.top, bar->right - screen_.left,
                     bar->bottom - screen_.top};
  } else {
    POINT pointer{};
    ::GetCursorPos(&pointer);
    found.Taskbar = StripBelow({pointer.x - screen_.left, pointer.y - screen_.top}, size,
                               ::GetSystemMetricsForDpi(SM_CXSMICON, dpi_));
  }
  found.Screen = {static_cast<double>(size.cx), static_cast<double>(size.cy)};
  found.TwipsPerPixelX = found.TwipsPerPixelY = kTwipsPerInch / dpi_;
  return found;
}

TextSize WindowsTooltip::Measure(std::string_view text, const TooltipFont& font) {
  if (monitor_ == nullptr) LookAtScreen();
  const OwnedFont measured = FontFor(font, dpi_);
  const std::wstring wide = WideOfCodePage(text);
  const HDC canvas = ::CreateCompatibleDC(nullptr);
  const HGDIOBJ before = ::SelectObject(canvas, measured.get());
  SIZE extent{};
  ::GetTextExtentPoint32W(canvas, wide.c_str(), static_cast<int>(wide.size()), &extent);
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(canvas, &metrics);
  ::SelectObject(canvas, before);
  ::DeleteDC(canvas);
  const double twips = kTwipsPerInch / dpi_;
  return {extent.cx * twips, metrics.tmHeight * twips};
}

int WindowsTooltip::Pixels(double twips) const {
  return static_cast<int>(std::nearbyint(twips * dpi_ / kTwipsPerInch));
}

void WindowsTooltip::Show(const TooltipPicture& picture) {
  if (monitor_ == nullptr) LookAtScreen();
  background_ = picture.BackColor ? static_cast<COLORREF>(*picture.BackColor) & 0xFFFFFF
                                  : ::GetSysColor(COLOR_WINDOW);
  if (!picture.PictureFile.empty()) image_ = BitmapFromFile(picture.PictureFile, background_);
  description_ = {FontFor(picture.DescriptionFont, dpi_),
                  static_cast<COLORREF>(picture.DescriptionFont.Color)};
  value_ = {FontFor(picture.ValueFont, dpi_), static_cast<COLORREF>(picture.ValueFont.Color)};
  for (const TooltipLabel& label : picture.Labels) {
    labels_.push_back(
        {WideOfCodePage(label.Text), label.Description, {Pixels(label.Left), Pixels(label.Top)}});
  }
  const SIZE size{Pixels(picture.Width), Pixels(picture.Height)};
  POINT place{};
  ::GetCursorPos(&place);
  if (picture.Place) place = {screen_.left + picture.Place->X, screen_.top + picture.Place->Y};
  place.x = std::max(screen_.left, std::min(place.x, screen_.right - size.cx));
  place.y = std::max(screen_.top, std::min(place.y, screen_.bottom - size.cy));

  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = WindowProcedure;
  windowClass.hInstance = program;
  windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = kWindowClass;
  ::RegisterClassW(&windowClass);
  window_ = ::CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, kWindowClass,
                              L"TooltipWin", WS_POPUP, place.x, place.y, size.cx, size.cy,
                              tray_.Window(), nullptr, program, nullptr);
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ::SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  ::UpdateWindow(window_);
}

void WindowsTooltip::Close() {
  if (window_ != nullptr) ::DestroyWindow(window_);
  window_ = nullptr;
  monitor_ = nullptr;
  image_.reset();
  labels_.clear();
  description_ = {};
  value_ = {};
}

LRESULT CALLBACK WindowsTooltip::WindowProcedure(HWND window, UINT message, WPARAM wide,
                                                 LPARAM long_) {
  const auto* const tooltip =
      reinterpret_cast<const WindowsTooltip*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_ERASEBKGND:
      return TRUE;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_PAINT:
      if (tooltip == nullptr) break;
      tooltip->Paint(window);
      return 0;
    default:
      break;
  }
  return ::DefWindowProcW(window, message, wide, long_);
}

// Drawn aside and shown in one go.
void WindowsTooltip::Paint(HWND window) const {
  PAINTSTRUCT painting{};
  const HDC screen = ::BeginPaint(window, &painting);
  RECT area{};
  ::GetClientRect(window, &area);
  const HDC canvas = ::CreateCompatibleDC(screen);
  const OwnedBitmap aside(::CreateCompatibleBitmap(screen, area.right, area.bottom));
  const HGDIOBJ before = ::SelectObject(canvas, aside.get());
  Draw(canvas, area);
  ::BitBlt(screen, 0, 0, area.right, area.bottom, canvas, 0, 0, SRCCOPY);
  ::SelectObject(canvas, before);
  ::DeleteDC(canvas);
  ::EndPaint(window, &painting);
}

void WindowsTooltip::Draw(HDC canvas, const RECT& area) const {
  const OwnedBrush paper(::CreateSolidBrush(background_));
  ::FillRect(canvas, &area, paper.get());
  if (image_) {
    BITMAP size{};
    ::GetObjectW(image_.get(), sizeof size, &size);
    const HDC source = ::CreateCompatibleDC(canvas);
    const HGDIOBJ before = ::SelectObject(source, image_.get());
    ::BitBlt(canvas, 0, 0, size.bmWidth, size.bmHeight, source, 0, 0, SRCCOPY);
    ::SelectObject(source, before);
    ::DeleteDC(source);
  }
  ::SetBkMode(canvas, TRANSPARENT);
  for (const Label& label : labels_) {
    const Style& style = label.Description ? description_ : value_;
    const HGDIOBJ before = ::SelectObject(canvas, style.Font.get());
    ::SetTextColor(canvas, style.Color);
    ::TextOutW(canvas, label.Place.x, label.Place.y, label.Text.c_str(),
               static_cast<int>(label.Text.size()));
    ::SelectObject(canvas, before);
  }
  const OwnedBrush frame(::CreateSolidBrush(Mixed(value_.Color, background_)));
  RECT line = area;
  for (int i = 0; i < std::max(1, static_cast<int>(dpi_) / kUsualDpi); ++i) {
    ::FrameRect(canvas, &line, frame.get());
    ::InflateRect(&line, -1, -1);
  }
}

}  // namespace quillbox
