// The small ports.
#include "simulated/simulated_desk.h"

namespace quillbox {
namespace {

const char* NameOf(FormName form) {
  switch (form) {
    case FormName::kOpts:
      return "Opts";
    case FormName::kReportsWin:
      return "ReportsWin";
    case FormName::kAboutWin:
      return "AboutWin";
    case FormName::kAccount:
      return "Account";
  }
  return "";
}

}  // namespace

std::string SimulatedEnvironment::Variable(std::string_view name) {
  const auto value = values_.find(name);
  return value == values_.end() ? std::string() : value->second;
}

void SimulatedForms::Load(FormName form) {
  if (loaded_.insert(form).second) trace_.Add("form", NameOf(form));
}

void SimulatedForms::Unload(FormName form) {
  if (loaded_.erase(form) > 0) trace_.Add("close", NameOf(form));
}

void SimulatedForms::UnloadAll() {
  for (const FormName form : loaded_) trace_.Add("close", NameOf(form));
  loaded_.clear();
}

TextSize SimulatedTooltip::Measure(std::string_view text, const TooltipFont& font) {
  constexpr double kTwipsPerPoint = 20;
  const double points = font.Points * static_cast<double>(text.size());
  return {kTwipsPerPoint * points * (font.Bold ? 0.6 : 0.5), kTwipsPerPoint * font.Points * 1.2};
}

void SimulatedTooltip::Show(const TooltipPicture& picture) {
  shown_ = picture;
  trace_.Add("tooltip", "opens");
}

void SimulatedTooltip::Close() {
  if (!shown_) return;
  shown_.reset();
  trace_.Add("tooltip", "closes");
}

void SimulatedOpener::Open(const std::string& target) {
  opened_.push_back(target);
  const bool secret = target.find("Passwd=") != std::string::npos;
  trace_.Add("open", secret ? target.substr(0, target.find('?')) + "?..." : target);
}

void SimulatedExit::EndProcess() {
  trace_.Add("exit", "");
  throw ProcessEnded{};
}

}  // namespace quillbox
