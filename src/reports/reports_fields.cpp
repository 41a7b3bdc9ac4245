#include "reports/reports_fields.h"

#include <algorithm>

namespace quillbox {

ReportsLayout LayOutReports(TwipSize window, int twipsPerPixelY) {
  constexpr int kPixelsBelow = 35;  // the lower frame, and a margin
  ReportsLayout layout{.Window = {std::max(window.Width, kReportsSmallest.Width),
                                  std::max(window.Height, kReportsSmallest.Height)},
                       .Browser = kBrowserPlace,
                       .Panel = kShape2Place};
  layout.Browser.Width = layout.Window.Width - 3 * kBrowserPlace.Left;
  layout.Browser.Height = layout.Window.Height - kBrowserPlace.Top - kPixelsBelow * twipsPerPixelY;
  layout.Panel.Width = layout.Browser.Width;
  return layout;
}

}  // namespace quillbox
