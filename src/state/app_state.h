// The one record of the running program: plain data, made in `main` and handed down by reference.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "config/account_list.h"
#include "platform/tray.h"

namespace quillbox {

// Texts are empty and numbers 0 until set. Texts: code page.
struct AppState : AccountList {
  std::string ProxyUsername, ProxyPassword, ProxyServer, ProxyPort;  // in clear

  std::string TrayAction;        // what a double click on the icon does
  std::string TraySingleAction;  // what a single click does
  std::string ShowBalloonWhen;

  // A file or "(None)": impressions, clicks, rate, CPM, earnings, downloaded.
  std::array<std::string, 6> SoundFiles;

  std::int16_t UpdateMinuteCount = 0;  // minutes since the last automatic refresh
  std::int16_t UpdateRateMinutes = 0;
  bool RefreshRunning = false;
  bool VersionCheckRunning = false;
  bool VersionCheckAsked = false;  // the person waits for what the running check finds

  std::string SettingsProfile;  // empty: the per-user store; else the settings file's name

  Menu TrayMenu;  // with the two run-time submenus in it

  std::string IconImage;  // the picture's file; empty for the program's own icon
  quillbox::TrayIconRecord TrayIconRecord;
  std::string TooltipText;  // lines separated by CR LF
  bool TooltipShowing = false;
  std::int32_t HoverX = 0, HoverY = 0;
};

}  // namespace quillbox
