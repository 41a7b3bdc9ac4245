// The notification area in which the icon stands.
#pragma once

#include <string>

#include "platform/menu.h"
#include "platform/tray_icon_record.h"

namespace quillbox {

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

}  // namespace quillbox
