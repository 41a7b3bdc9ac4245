#include "tooltip/skin.h"

#include <algorithm>
#include <vector>

#include "config/profile_file.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::string_view kSection = "Skin";
constexpr SkinColorValue kDefaultFontColor = 0 | 26 << 8 | 53 << 16;

// A whole number of 16 bits.
std::optional<int> ColorPart(std::string_view text) {
  const std::optional<std::int16_t> value = SkinNumber<std::int16_t>(text);
  if (!value || *value < 0) return std::nullopt;
  return std::min<int>(*value, 255);
}

}  // namespace

std::optional<SkinColorValue> SkinColor(std::string_view text) {
  constexpr SkinColorValue kBlack = 0;
  if (text.empty() || text == "NO_SUCH_KEY") return std::nullopt;
  const std::vector<std::string> fields = SplitText(text, ",");
  if (fields.size() != 3) return kBlack;
  SkinColorValue color = 0;
  for (int i = 0; i < 3; ++i) {
    const std::optional<int> part = ColorPart(fields[static_cast<std::size_t>(i)]);
    if (!part) return kBlack;
    color |= *part << (8 * i);
  }
  return color;
}

Skin ReadSkin(Files& files, const std::string& path) {
  const std::string file = ReadProfile(files, path).value_or("");
  const std::string_view section = ProfileSection(file, kSection);
  const auto read = [section](std::string_view key) {
    const std::string value =
        ReadProfileValue(section, kSection, key).substr(0, kLongestProfileValue);
    return std::string(Trimmed(value, kBlankAndTab));  // a person may write "FontSize = 10"
  };
  const auto orDefault = [](const std::string& value, const std::string& whenEmpty) {
    return value.empty() ? whenEmpty : value;
  };
  Skin skin;
  skin.BackColor = read("BackColor");
  skin.FontFace = orDefault(read("FontFace"), skin.FontFace);
  skin.FontSize = orDefault(read("FontSize"), skin.FontSize);
  skin.FontColor = SkinColor(read("FontColor")).value_or(kDefaultFontColor);
  skin.DescFontFace = read("DescFontFace");
  skin.DescFontSize = read("DescFontSize");
  skin.DescFontColor = SkinColor(read("DescFontColor"));
  return skin;
}

}  // namespace quillbox
