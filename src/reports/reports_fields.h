// What stands on the Reports window, and where.
#pragma once

#include <algorithm>

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

// Sizes and places are in twips: 1440 are an inch, 15 a pixel at 96 dots per inch.
struct TwipSize {
  int Width = 0, Height = 0;
  bool operator==(const TwipSize&) const = default;
};

struct TwipRect {
  int Left = 0, Top = 0, Width = 0, Height = 0;
  bool operator==(const TwipRect&) const = default;
};

// The window is as large as its client area and this frame, whatever frame the desktop gives it.
inline constexpr TwipSize kReportsFrame{120, 405};
inline constexpr TwipSize kReportsSmallest{9015, 5385};  // with the frame
inline constexpr TwipSize kReportsClient{8895, 4980};    // as it opens

// Places in the client area of that size.
inline constexpr TwipRect kShape2Place{120, 120, 8655, 1815};
inline constexpr TwipRect kReportsLabelPlaces[] = {  // of Combo1 to Combo4
    {360, 360, 1560, 195},
    {360, 1080, 645, 195},
    {4440, 360, 1080, 195},
    {4440, 1080, 1245, 195}};
inline constexpr TwipRect kReportsComboPlaces[] = {
    {360, 600, 3855, 315}, {360, 1320, 3855, 315}, {4440, 600, 1935, 315}, {4440, 1320, 1935, 315}};
inline constexpr TwipRect kReportsCommand1Place{6600, 1240, 1935, 375};
inline constexpr TwipRect kBrowserPlace{120, 2040, 8655, 2775};

struct ReportsLayout {
  TwipSize Window;  // with the frame; never less than kReportsSmallest
  TwipRect Browser;
  TwipRect Panel;  // Shape2
};

// What a window of this size (with the frame) becomes. `twipsPerPixelY` is the screen's.
inline ReportsLayout LayOutReports(TwipSize window, int twipsPerPixelY) {
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
