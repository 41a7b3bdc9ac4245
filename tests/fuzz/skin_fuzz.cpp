// Any skin file under any tooltip: the look that it gives can be drawn, and written out plainly it
// reads back as the same.
#include <cmath>

#include "fuzz/fuzz_input.h"
#include "simulated/simulated_files.h"
#include "tooltip/skin.h"
#include "tooltip/tooltip_picture.h"

namespace {

using namespace quillbox;

constexpr const char* kPath = "/app/skin.ini";

// A font in which each character is as wide as its points.
class PlainWindow final : public TooltipWindow {
 public:
  TextSize Measure(std::string_view text, const TooltipFont& font) override {
    Require(font.Points > 0 && font.Points <= 1000 && !font.Face.empty());
    Require(font.Color >= 0 && font.Color <= 0xFFFFFF);
    return {font.Points * static_cast<double>(text.size()), font.Points};
  }
  TooltipSurroundings Surroundings() override {
    return {.Taskbar = {0, 738, 1024, 768}, .Screen = {1024, 768}};
  }
  void Show(const TooltipPicture&) override {}
  void Close() override {}
};

std::string ColorText(SkinColorValue color) {
  return std::to_string(color & 255) + "," + std::to_string(color >> 8 & 255) + "," +
         std::to_string(color >> 16 & 255);
}

void CheckColor(std::string_view text) {
  const auto color = SkinColor(text);
  if (!color) return;
  Require(*color >= 0 && *color <= 0xFFFFFF);
  Require(SkinColor(ColorText(*color)) == color);
}

std::string PlainFile(const Skin& skin) {
  return "[Skin]\r\nBackColor=" + skin.BackColor + "\r\nFontFace=" + skin.FontFace +
         "\r\nFontSize=" + skin.FontSize + "\r\nFontColor=" + ColorText(skin.FontColor) +
         "\r\nDescFontFace=" + skin.DescFontFace + "\r\nDescFontSize=" + skin.DescFontSize +
         "\r\nDescFontColor=" + (skin.DescFontColor ? ColorText(*skin.DescFontColor) : "") + "\r\n";
}

void CheckSkin(SimulatedFiles& files) {
  const Skin skin = ReadSkin(files, kPath);
  SimulatedFiles plain{{kPath, PlainFile(skin)}};
  const Skin again = ReadSkin(plain, kPath);
  Require(again.BackColor == skin.BackColor && again.FontFace == skin.FontFace);
  Require(again.FontSize == skin.FontSize && again.FontColor == skin.FontColor);
  Require(again.DescFontFace == skin.DescFontFace && again.DescFontSize == skin.DescFontSize);
  Require(again.DescFontColor == skin.DescFontColor);
}

void CheckPicture(const std::string& text, SimulatedFiles& files) {
  PlainWindow window;
  const TooltipPicture picture = BuildTooltipPicture(text, files, kPath, "/app/Skin.gif", window);
  Require(std::isfinite(picture.Width) && std::isfinite(picture.Height));
  Require(picture.Labels.size() % 2 == 0 && picture.PictureFile.empty());
  std::size_t shown = 0;
  for (const TooltipLabel& label : picture.Labels) {
    Require(text.find(label.Text) != text.npos);
    Require(label.Left >= 0 && label.Left <= picture.Width);
    Require(label.Top >= 0 && label.Top <= picture.Height);
    shown += label.Text.size();
  }
  Require(shown <= text.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view in = TextOf(data, size);
  const std::string text = TakeText(in, '\x1F');
  SimulatedFiles files{{kPath, std::string(in)}};
  CheckColor(in);
  CheckSkin(files);
  CheckPicture(text, files);
  return 0;
}
