// The icon in the notification area with its menu and balloons, and the hidden window behind it,
// which hears of clicks, of a restarted taskbar, of a second start and of the end of the session.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <optional>
#include <vector>

#include "platform/host.h"
#include "platform/tooltip_window.h"
#include "platform/tray.h"
#include "windows_base/picture.h"

namespace quillbox {

class WindowsTray : public TrayHost, public TrayMenuHost {
 public:
  WindowsTray();
  ~WindowsTray() override;
  WindowsTray(const WindowsTray&) = delete;
  WindowsTray& operator=(const WindowsTray&) = delete;

  // Where a new taskbar, a second start, the mouse and the menu's items are reported. When the
  // session ends, the menu's item "Exit" is chosen.
  void Connect(HostEvents& events) { events_ = &events; }

  // The hidden window. One that belongs to it has no button in the taskbar.
  HWND Window() const { return window_; }

  // TrayHost
  bool Apply(TrayOperation operation, const TrayIconRecord& record) override;
  void TooltipChanged(const std::string&) override {}  // our own window shows it
  bool CanShowPicture(const std::string& path) override;

  // TrayMenuHost
  bool BringToForeground() override;
  void PopUp() override;

  // The icon's place on the desktop; nothing where the system doesn't tell.
  std::optional<RECT> IconPlace() const;

 private:
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wide, LPARAM long_);
  std::optional<LRESULT> Handle(UINT message, WPARAM wide, LPARAM long_);
  bool Add();
  bool Tell(DWORD operation);
  void TryAgain();
  void LoadPicture();
  void Report(LPARAM code);
  void ChooseExit();

  HostEvents* events_ = nullptr;
  UINT taskbarCreated_;
  UINT launched_;
  HWND window_;
  NOTIFYICONDATAW icon_{};
  OwnedIcon picture_;
  std::string pictureFile_;
  bool wanted_ = false;  // the program has added its icon and not removed it
  bool shown_ = false;
  int triesLeft_ = 0;  // to add an icon that the taskbar did not take
};

class WindowsCursor : public Cursor {
 public:
  PixelPoint Position() override;
};

}  // namespace quillbox
