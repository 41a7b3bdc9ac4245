// A whole host on simulated time: the program runs on it as on a desktop, hours in milliseconds,
// and the same seed gives the same trace.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "simulated/simulated_agents.h"
#include "simulated/simulated_desk.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_forms.h"
#include "simulated/simulated_person.h"
#include "simulated/simulated_store.h"
#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"
#include "simulated/simulated_tray.h"

namespace quillbox {

class SimulatedHost {
 public:
  using Action = std::function<void()>;

  // Begins at 31 January 2007, 9:05:00, a Wednesday.
  explicit SimulatedHost(std::uint64_t seed = 0);
  SimulatedHost(const SimulatedHost&) = delete;
  SimulatedHost& operator=(const SimulatedHost&) = delete;

  // The parts, to set up and to look at. They live as long as the host.
  SimulatedTime Time;
  SimulatedTrace Effects;
  SimulatedStore Store;
  SimulatedFiles Files;
  SimulatedEnvironment Variables;
  SimulatedTimers TimerSource;
  SimulatedAgents Agents;
  SimulatedGrants Grants;
  SimulatedTray Tray;
  SimulatedTrayMenus TrayMenus;
  SimulatedTooltip Tooltip;
  SimulatedCursor Mouse;
  SimulatedBoxes Boxes;
  SimulatedForms Windows;
  SimulatedChooser Chooser;
  SimulatedBrowser Browser;
  SimulatedSounds Speaker;
  SimulatedInstance Instance;
  SimulatedNetwork Network;
  SimulatedOpener Opener;
  SimulatedStartUp StartUp;

  // For the program; refers to the parts.
  Host Ports();

  // A process begins: `events` hears what happens to it until it ends.
  void Connect(HostEvents& events);

  // All that the process does happens inside of one of these. When it ends in the middle, they
  // return at once; after its end they only let the time pass.
  void Do(const Action& action);
  void RunFor(std::chrono::milliseconds duration);
  // Until `done`, at most for `limit`. Whether it is done.
  bool RunUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

  // Later, as an event, also if that is in the middle of something that Do or RunFor does.
  void After(std::chrono::milliseconds delay, Action action);

  // A process is there.
  bool Runs() const { return events_ != nullptr; }
  // The process came to its end by itself, by Exit or by Kill.
  bool Ended() const { return ended_; }
  // The process is gone at once, without doing anything more.
  void Kill();

  // What the world does to the program. Without a process they change the world alone.
  void TrayAppears();
  void TrayRestarts();
  void LaunchAgain();

  // What the person does with the mouse at the icon. A double click is its two codes in a row.
  void Hover(PixelPoint cursor);
  void LeftDown();
  void DoubleClick();
  void RightDown();

  // Chooses the tray menu's item of this name or caption; the last one of several. False when there
  // is none or it is disabled, which the trace tells.
  bool Choose(std::string_view item);

  std::vector<std::string> Trace() const { return Effects.Lines(); }
  std::vector<std::string> Trace(std::initializer_list<std::string_view> kinds) const {
    return Effects.Lines(kinds);
  }

 private:
  void Tell(const std::function<void(HostEvents&)>& event);
  void ProcessIsGone();

  SimulatedExit exit_;
  HostEvents* events_ = nullptr;
  bool ended_ = false;
  int depth_ = 0;
};

}  // namespace quillbox
