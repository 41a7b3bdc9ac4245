// The ports that evaluation and tray texts have no use for, for a host of their own.
#pragma once

#include <stdexcept>

#include "platform/address_opener.h"
#include "platform/agent_runner.h"
#include "platform/cursor.h"
#include "platform/environment.h"
#include "platform/event_pump.h"
#include "platform/file_chooser.h"
#include "platform/forms.h"
#include "platform/grant_asker.h"
#include "platform/message_boxes.h"
#include "platform/network_state.h"
#include "platform/program_exit.h"
#include "platform/report_browser.h"
#include "platform/single_instance.h"
#include "platform/start_up_entry.h"
#include "platform/timers.h"
#include "platform/tooltip_window.h"
#include "platform/tray_menu_host.h"

namespace quillbox {

// Every call is a mistake in the program: it throws std::logic_error.
class IdlePorts final : public AddressOpener,
                        public AgentRunner,
                        public Cursor,
                        public Environment,
                        public EventPump,
                        public FileChooser,
                        public Forms,
                        public GrantAsker,
                        public MessageBoxes,
                        public NetworkState,
                        public ProgramExit,
                        public ReportBrowser,
                        public SingleInstance,
                        public StartUpEntry,
                        public Timers,
                        public TooltipWindow,
                        public TrayMenuHost {
 public:
  void Open(const std::string&) override { Refuse(); }
  void OpenPrivately(const std::string&) override { Refuse(); }
  AgentId Start(const AgentStart&) override { Refuse(); }
  bool Running(AgentId) override { Refuse(); }
  void End(AgentId) override { Refuse(); }
  std::string Variable(std::string_view) override { Refuse(); }
  void PumpEvents() override { Refuse(); }
  void Sleep(std::chrono::milliseconds) override { Refuse(); }
  std::optional<std::string> Choose(const FileQuestion&) override { Refuse(); }
  std::unique_ptr<GrantAsking> Ask(const GrantQuestion&,
                                   std::function<void(const GrantAnswer&)>) override {
    Refuse();
  }
  void Forget(const std::string&,
              const std::vector<std::pair<std::string, std::string>>&) override {
    Refuse();
  }
  void Load(AboutWin&) override { Refuse(); }
  void Load(Opts&) override { Refuse(); }
  void Load(Account&) override { Refuse(); }
  void Load(ReportsWin&) override { Refuse(); }
  void Hide(FormName) override { Refuse(); }
  void Unload(FormName) override { Refuse(); }
  void UnloadAll() override { Refuse(); }
  void Navigate(const std::string&) override { Refuse(); }
  int ReadyState() override { Refuse(); }
  void SetBody(const std::string&) override { Refuse(); }
  bool Present() override { Refuse(); }
  void Make() override { Refuse(); }
  void Remove() override { Refuse(); }
  BoxAnswer Show(const Message&) override { Refuse(); }
  [[noreturn]] void EndProcess() override { Refuse(); }
  bool IsOnline() override { Refuse(); }
  bool AnotherInstanceRuns() override { Refuse(); }
  void WakeRunningInstance() override { Refuse(); }
  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds, std::function<void()>) override {
    Refuse();
  }

  PixelPoint Position() override { Refuse(); }
  TextSize Measure(std::string_view, const TooltipFont&) override { Refuse(); }
  TooltipSurroundings Surroundings() override { Refuse(); }
  void Show(const TooltipPicture&) override { Refuse(); }
  void Close() override { Refuse(); }
  bool BringToForeground() override { Refuse(); }
  void PopUp() override { Refuse(); }

 private:
  [[noreturn]] static void Refuse() {
    throw std::logic_error("a port was used that the evaluation must not use");
  }
};

}  // namespace quillbox
