// Single instance through the gate in the user's runtime folder.
#pragma once

#include <QSocketNotifier>
#include <memory>

#include "platform/host.h"
#include "platform/process.h"
#include "system/instance_gate.h"

namespace quillbox {

class LocalSingleInstance : public SingleInstance {
 public:
  LocalSingleInstance();

  // Where QuillboxLaunched is reported.
  void Connect(HostEvents& events) { events_ = &events; }

  bool AnotherInstanceRuns() override;
  void WakeRunningInstance() override;

  // Later starts find nobody to wake.
  void Close();

 private:
  InstanceGate gate_;
  std::unique_ptr<QSocketNotifier> knocks_;
  HostEvents* events_ = nullptr;
};

}  // namespace quillbox
