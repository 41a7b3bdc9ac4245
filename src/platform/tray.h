// The notification area: the icon's record, the menu, and the tray that shows both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// A menu as a plain value.
struct MenuItem {
  std::string Name;     // the fixed name ("RefreshNow"); empty for items made at run time
  std::string Caption;  // code page; "&" stands for itself
  int Command = 0;      // command number of an item made at run time
  bool Enabled = true;
  bool Default = false;  // the menu's default item
  bool Submenu = false;  // opens Items, also when there are none
  bool Separator = false;
  std::vector<MenuItem> Items;
};

using Menu = std::vector<MenuItem>;

// A text field of `Size` characters, one of them for its end: what doesn't fit is cut off.
template <std::size_t Size>
class FixedText {
 public:
  FixedText& operator=(std::string_view text) {
    text_ = text.substr(0, Size - 1);
    return *this;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// Which fields an operation names.
inline constexpr std::uint32_t kNifMessage = 1;
inline constexpr std::uint32_t kNifIcon = 2;
inline constexpr std::uint32_t kNifTip = 4;
inline constexpr std::uint32_t kNifInfo = 16;

enum class TrayOperation { kAdd = 0, kModify = 1, kDelete = 2 };

// The one record of the tray icon; the host is always given the whole of it. Field names are those
// of the record for which the program was first written. Texts: code page.
struct TrayIconRecord {
  std::uint32_t cbSize = 0;
  std::uint32_t uID = 0;
  std::uint32_t uFlags = 0;
  std::uint32_t uCallbackMessage = 0;
  std::string hIcon;  // path of the picture's file; empty for the program's own icon
  FixedText<128> szTip;
  std::uint32_t dwState = 0;
  std::uint32_t dwStateMask = 0;
  FixedText<256> szInfo;
  std::uint32_t uTimeout = 0;  // of a balloon, in milliseconds
  FixedText<64> szInfoTitle;
  std::uint32_t dwInfoFlags = 0;
};

class TrayHost {
 public:
  virtual ~TrayHost() = default;

  // Carries out the operation on the fields that the record's uFlags name. A balloon is shown when
  // kNifInfo is among them and szInfo isn't empty. False when there is no icon to work on: no tray,
  // or the tray lost it. An icon that couldn't be added comes when a tray appears, and the program
  // is then told (HostEvents::TaskbarCreated).
  virtual bool Apply(TrayOperation operation, const TrayIconRecord& record) = 0;

  // The text that the icon stands for has changed (code page, lines end in CR LF). A host whose
  // tray has no place for our own window shows it as its own tip.
  virtual void TooltipChanged(const std::string& text) = 0;

  // The menu at the icon has become this one. A host that shows it only on request asks for it then
  // (HostEvents::TrayMenu).
  virtual void MenuChanged(const Menu&) {}

  // Whether the file holds a picture that this host can show as an icon.
  virtual bool CanShowPicture(const std::string& path) = 0;
};

// Showing the tray menu.
class TrayMenuHost {
 public:
  virtual ~TrayMenuHost() = default;

  // Brings the program to the foreground, so that a click elsewhere closes its menu. False when the
  // system doesn't allow it.
  virtual bool BringToForeground() = 0;

  // Shows HostEvents::TrayMenu at the cursor. Returns when the menu has closed and the handler of
  // the item that was chosen is done; events are handled meanwhile.
  virtual void PopUp() = 0;
};

}  // namespace quillbox
