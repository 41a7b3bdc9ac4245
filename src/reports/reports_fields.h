// What stands on the Reports window beside its browser.
#pragma once

#include "forms/controls.h"

namespace quillbox {

// The window on screen can be another process's: it has a copy of these fields, and each side tells
// the other what changed.
struct ReportsFields {
  ListField Combo1{"Combo1", "AdSense Account:"};
  ListField Combo2{"Combo2", "Report:"};
  ListField Combo3{"Combo3", "Date Range:"};
  ListField Combo4{"Combo4", "Show data by:"};
  Button Command1{"Command1", "Generate Report"};
};

inline constexpr char kReportsCaption[] = "Quillbox Reports";

}  // namespace quillbox
