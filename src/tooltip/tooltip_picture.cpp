#include "tooltip/tooltip_picture.h"

#include <algorithm>
#include <cmath>

#include "text/text_list.h"
#include "tooltip/skin.h"

namespace quillbox {
namespace {

constexpr double kLeft = 180;  // margins, and the first row's place
constexpr double kTop = 150;
constexpr double kGap = 25;  // below each row whose line isn't the text's last

struct TooltipRows {
  std::vector<TooltipRow> Rows;
  std::size_t LastLine = 0;  // the text's last one, with or without a row
};

TooltipRows SplitTooltipText(std::string_view text) {
  const std::vector<std::string> lines = SplitText(text, "\r\n");
  TooltipRows result;
  if (lines.size() < 2) return result;
  result.LastLine = lines.size() - 1;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t colon = lines[i].find(": ");
    if (colon == std::string::npos) continue;
    result.Rows.push_back({i, lines[i].substr(0, colon + 1), lines[i].substr(colon + 1)});
  }
  return result;
}

constexpr double kMargin = 10;  // from the screen's corner, but on the right edge

PixelPoint Rounded(double x, double y) {
  return {static_cast<int>(std::nearbyint(x)), static_cast<int>(std::nearbyint(y))};
}

constexpr double kDesignedPoints = 8.25;
constexpr double kMostPoints = 1000;  // no screen shows more; "inf" reads as a number too

double PointsIn(std::string_view text) {
  const std::optional<double> points = SkinNumber<double>(text);
  return points && *points > 0 && *points <= kMostPoints ? *points : kDesignedPoints;
}

TooltipFont ValueFont(const Skin& skin) {
  return {skin.FontFace, PointsIn(skin.FontSize), false, skin.FontColor};
}

TooltipFont DescriptionFont(const Skin& skin) {
  return {skin.DescFontFace.empty() ? skin.FontFace : skin.DescFontFace,
          PointsIn(skin.DescFontSize.empty() ? skin.FontSize : skin.DescFontSize), true,
          skin.DescFontColor.value_or(skin.FontColor)};
}

std::optional<PixelPoint> PlaceOf(const TooltipPicture& picture,
                                  const TooltipSurroundings& surroundings) {
  return PlaceTooltip(
      surroundings.Taskbar, surroundings.Screen,
      {picture.Width / surroundings.TwipsPerPixelX, picture.Height / surroundings.TwipsPerPixelY});
}

void AddRows(TooltipPicture& picture, std::string_view text, TooltipWindow& window) {
  const auto measuredIn = [&window](const TooltipFont& font) {
    return [&window, &font](std::string_view caption) { return window.Measure(caption, font); };
  };
  const TooltipLayout layout =
      LayOutTooltip(text, {measuredIn(picture.DescriptionFont), measuredIn(picture.ValueFont)});
  for (const PlacedRow& row : layout.Rows) {
    picture.Labels.push_back({row.Row.Description, true, row.Left, row.Top});
    picture.Labels.push_back({row.Row.Value, false, row.ValueLeft, row.Top});
  }
  picture.Width = layout.Width;
  picture.Height = layout.Height;
}

}  // namespace

TooltipLayout LayOutTooltip(std::string_view text, const TooltipMeasure& measure) {
  const TooltipRows rows = SplitTooltipText(text);
  TooltipLayout layout;
  double y = 0;
  double widest = 0;
  for (const TooltipRow& row : rows.Rows) {
    const TextSize description = measure.Description(row.Description);
    const double valueWidth = measure.Value(row.Value).Width;
    layout.Rows.push_back({row, kLeft, kTop + y, kLeft + description.Width});
    // Kept a whole number, a half to the even one.
    y = std::nearbyint(y + description.Height + (row.Line < rows.LastLine ? kGap : 0));
    widest = std::max(widest, description.Width + valueWidth);
  }
  layout.Width = 2 * kLeft + widest;
  layout.Height = 2 * kTop + y;
  return layout;
}

std::optional<PixelPoint> PlaceTooltip(const PixelRect& taskbar, const PixelSize& screen,
                                       const PixelSize& window) {
  if (taskbar.Left > 0) {  // on the right edge
    return Rounded(taskbar.Left - window.Width, screen.Height - window.Height);
  }
  const bool reachesRight = taskbar.Right >= screen.Width;
  if (reachesRight && taskbar.Top > 0) {  // at the bottom
    return Rounded(taskbar.Right - window.Width - kMargin, taskbar.Top - window.Height);
  }
  if (reachesRight) {  // at the top
    return Rounded(screen.Width - window.Width - kMargin, taskbar.Bottom);
  }
  if (taskbar.Top <= 0) {  // on the left edge
    return Rounded(taskbar.Right, screen.Height - window.Height - kMargin);
  }
  return std::nullopt;
}

TooltipPicture BuildTooltipPicture(std::string_view text, Files& files, const std::string& skinFile,
                                   const std::string& pictureFile, TooltipWindow& window) {
  const TooltipSurroundings surroundings = window.Surroundings();
  const Skin skin = ReadSkin(files, skinFile);
  TooltipPicture picture;
  if (files.Exists(pictureFile)) {
    picture.PictureFile = pictureFile;
  } else {
    picture.BackColor = SkinNumber<std::int32_t>(skin.BackColor);
  }
  picture.DescriptionFont = DescriptionFont(skin);
  picture.ValueFont = ValueFont(skin);
  AddRows(picture, text, window);
  picture.Place = PlaceOf(picture, surroundings);
  return picture;
}

}  // namespace quillbox
