// The operations on the tray icon.
#pragma once

#include <string>
#include <string_view>

#include "state/program_context.h"

namespace quillbox {

// Each sets the fields of TrayIconRecord that it names, leaves the rest as they were, and hands the
// host the whole record. Failures are ignored.

// Whether it is in a tray now; without one it comes when a tray does.
bool AddTrayIcon(const ProgramContext& program);

// Under the title "Quillbox". `text` is the whole text; the record cuts it.
void ShowBalloon(const ProgramContext& program, std::string_view text);

// Makes `text` the tooltip's text and leaves the host's own tip field empty.
void SetTooltipText(const ProgramContext& program, const std::string& text);

// Shows the picture that IconImage holds now.
void UpdateTrayIcon(const ProgramContext& program);

void RemoveTrayIcon(const ProgramContext& program);

}  // namespace quillbox
