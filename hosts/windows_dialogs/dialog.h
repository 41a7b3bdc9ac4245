// A window with controls from dialogs.rc: its making, its keyboard, its end.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "windows_base/picture.h"
#include "windows_dialogs/dialog_fields.h"

namespace quillbox {

// A dialog in the person's font, which the system scales with the screen. The keyboard works as in
// every dialog, whichever loop fetches the messages. The window goes with this object, which may
// end while one of its messages is handled.
class Dialog {
 public:
  // `name` is the fixed one and, in any case, that in dialogs.rc. `caption`: code page.
  Dialog(std::string_view name, const std::string& caption, HWND owner = nullptr);
  virtual ~Dialog();
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  HWND Window() const { return window_; }

  // Called when the person closes the window by its close box, or by Escape where no button is for
  // that. It may destroy the dialog.
  std::function<void()> Closed;

  // In the middle of `area`, in front of the other windows without staying there.
  void Present(const RECT& area);

  // The dialog of that fixed name in this program; null when there is none that can be seen.
  static HWND WindowNamed(std::string_view name);

 protected:
  // A child window from dialogs.rc that takes part in the dialog.
  HWND NewPage(std::string_view name);

  HWND Item(std::string_view name) const { return ::GetDlgItem(window_, NumberOf(name)); }
  DialogFields& Fields() { return fields_; }
  UINT Dpi() const { return ::GetDpiForWindow(window_); }

  // Escape presses this button. It must live as long as the dialog.
  void OnEscape(Button& button) { escape_ = &button; }

  // What the kinds handle by themselves; nothing for the usual.
  virtual std::optional<INT_PTR> Handle(UINT, WPARAM, LPARAM) { return std::nullopt; }
  // The person asks for the tab so many places after the shown one.
  virtual void Turn(int) {}

 private:
  static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wide, LPARAM long_);
  static LRESULT CALLBACK OnFetchedMessage(int code, WPARAM wide, LPARAM long_);
  INT_PTR HandleUsual(HWND window, UINT message, WPARAM wide, LPARAM long_);
  void OnKey(MSG& key);
  void Close();

  HWND window_ = nullptr;
  OwnedIcon small_, large_;
  DialogFields fields_;
  Button* escape_ = nullptr;
};

}  // namespace quillbox
