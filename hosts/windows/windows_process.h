// The program as a process of its user: one at a time, the entry that starts it, and its end.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>

#include "config/application_folder.h"
#include "platform/process.h"

namespace quillbox {

// The program's own window is known by this property, which has the value 1, and hears of a later
// start by this registered message.
inline constexpr wchar_t kApplicationProperty[] = L"Quillbox_APPLICATION";
inline constexpr wchar_t kLaunchedMessage[] = L"QuillboxLaunched";

// The window is another part's; it may come some time after AnotherInstanceRuns.
class WindowsSingleInstance : public SingleInstance {
 public:
  // Waits at most `patience` for the other run's window, and so long again for its answer.
  explicit WindowsSingleInstance(
      std::chrono::milliseconds patience = std::chrono::milliseconds(2000))
      : patience_(patience) {}
  ~WindowsSingleInstance() override;
  WindowsSingleInstance(const WindowsSingleInstance&) = delete;
  WindowsSingleInstance& operator=(const WindowsSingleInstance&) = delete;

  // By a named object of the session with the person's number in its name. Besides, "Quillbox" is
  // taken, a name that others may look for.
  bool AnotherInstanceRuns() override;
  void WakeRunningInstance() override;

 private:
  const std::chrono::milliseconds patience_;
  void* gate_ = nullptr;  // both are held until the process ends
  void* known_ = nullptr;
};

// The value "Quillbox" of the key that Windows goes through when the person signs in.
class RunValue : public StartUpEntry {
 public:
  // `folder` must outlive it.
  explicit RunValue(const ApplicationFolder& folder) : folder_(folder) {}

  bool Present() override;
  void Make() override;
  void Remove() override;

 private:
  const ApplicationFolder& folder_;
};

class WindowsProgramExit : public ProgramExit {
 public:
  // `lastActs` ends what must not outlive the process.
  explicit WindowsProgramExit(std::function<void()> lastActs) : lastActs_(std::move(lastActs)) {}

  [[noreturn]] void EndProcess() override;

 private:
  std::function<void()> lastActs_;
};

}  // namespace quillbox
