// The small ports: environment, sounds, start-up entry, network, opened addresses, the other
// instance, the way out.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms.h"
#include "platform/process.h"
#include "platform/surroundings.h"
#include "platform/tooltip_window.h"
#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"
#include "text/code_page.h"

namespace quillbox {

class SimulatedEnvironment final : public Environment {
 public:
  void Set(const std::string& name, const std::string& value) { values_[name] = value; }
  std::string Variable(std::string_view name) override;

 private:
  std::map<std::string, std::string, LessIgnoringCase> values_;
};

class SimulatedSounds final : public Sounds {
 public:
  explicit SimulatedSounds(SimulatedTrace& trace) : trace_(trace) {}
  void PlaySoundFile(const std::string& file) override { trace_.Add("sound", file); }

 private:
  SimulatedTrace& trace_;
};

class SimulatedStartUp final : public StartUpEntry {
 public:
  explicit SimulatedStartUp(SimulatedTrace& trace) : trace_(trace) {}

  bool Present() override { return present_; }
  void Make() override;
  void Remove() override;

 private:
  SimulatedTrace& trace_;
  bool present_ = false;
};

class SimulatedCursor final : public Cursor {
 public:
  void MoveTo(PixelPoint position) { position_ = position; }
  PixelPoint Position() override { return position_; }

 private:
  PixelPoint position_;
};

// A font in which every character is as wide as every other, on a screen of 1024 by 768 pixels with
// the taskbar at the bottom.
class SimulatedTooltip final : public TooltipWindow {
 public:
  explicit SimulatedTooltip(SimulatedTrace& trace) : trace_(trace) {}

  TooltipSurroundings Around{{0, 738, 1024, 768}, {1024, 768}};

  // What the window shows; nothing while there is none.
  const std::optional<TooltipPicture>& Shown() const { return shown_; }
  void ProgramEnded() { shown_.reset(); }

  TextSize Measure(std::string_view text, const TooltipFont& font) override;
  TooltipSurroundings Surroundings() override { return Around; }
  void Show(const TooltipPicture& picture) override;
  void Close() override;

 private:
  SimulatedTrace& trace_;
  std::optional<TooltipPicture> shown_;
};

class SimulatedNetwork final : public NetworkState {
 public:
  void SetOnline(bool online) { online_ = online; }
  bool IsOnline() override { return online_; }

 private:
  bool online_ = true;
};

class SimulatedOpener final : public AddressOpener {
 public:
  explicit SimulatedOpener(SimulatedTrace& trace) : trace_(trace) {}

  // Everything that was to be opened, in order, with the secrets in it; the trace has no password.
  // Open throws std::logic_error at an address that holds one.
  const std::vector<std::string>& Opened() const { return opened_; }

  void Open(const std::string& target) override;
  void OpenPrivately(const std::string& address) override;

 private:
  SimulatedTrace& trace_;
  std::vector<std::string> opened_;
};

class SimulatedInstance final : public SingleInstance {
 public:
  explicit SimulatedInstance(SimulatedTrace& trace) : trace_(trace) {}
  void SetAnotherRuns(bool runs) { anotherRuns_ = runs; }

  bool AnotherInstanceRuns() override { return anotherRuns_; }
  void WakeRunningInstance() override { trace_.Add("wake", ""); }

 private:
  SimulatedTrace& trace_;
  bool anotherRuns_ = false;
};

// What carries a simulated process out of all that it is in the middle of. Only the host that runs
// the process catches it.
struct ProcessEnded {};

class SimulatedExit final : public ProgramExit {
 public:
  explicit SimulatedExit(SimulatedTrace& trace) : trace_(trace) {}
  [[noreturn]] void EndProcess() override;

 private:
  SimulatedTrace& trace_;
};

// The Reports window's browser, without an engine.
class SimulatedBrowser final : public ReportBrowser {
 public:
  SimulatedBrowser(SimulatedTime& time, SimulatedTrace& trace) : time_(time), trace_(trace) {}

  // How long a page takes from now on.
  void SetLoadTime(std::chrono::milliseconds duration) { loadTime_ = duration; }

  void Navigate(const std::string& address) override;
  int ReadyState() override;
  void SetBody(const std::string& html) override;

 private:
  SimulatedTime& time_;
  SimulatedTrace& trace_;
  std::chrono::milliseconds loadTime_{20};
  TimePoint loadedAt_{};
};

}  // namespace quillbox
