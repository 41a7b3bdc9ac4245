#include "tooltip/tooltip_picture.h"

#include <optional>

#include "tooltip/skin.h"
#include "tooltip/skin_number.h"
#include "tooltip/tooltip_layout.h"
#include "tooltip/tooltip_placement.h"

namespace quillbox {
namespace {

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
