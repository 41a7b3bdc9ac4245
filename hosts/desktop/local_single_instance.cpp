#include "desktop/local_single_instance.h"

#include <chrono>

#include "system/instance_gate.h"

namespace quillbox {

using namespace std::chrono_literals;

LocalSingleInstance::LocalSingleInstance() : gate_(RuntimeFolder(InstanceGate::kLongestFolder)) {}

bool LocalSingleInstance::AnotherInstanceRuns() {
  if (!gate_.Pass()) return true;
  if (!knocks_ && gate_.Door() >= 0) {
    knocks_ = std::make_unique<QSocketNotifier>(gate_.Door(), QSocketNotifier::Read);
    QObject::connect(knocks_.get(), &QSocketNotifier::activated, [this] {
      const int knocks = gate_.AnswerKnocks();
      for (int i = 0; i < knocks && events_ != nullptr; ++i) events_->QuillboxLaunched();
    });
  }
  return false;
}

void LocalSingleInstance::WakeRunningInstance() {
  gate_.Knock(2s);
}

void LocalSingleInstance::Close() {
  knocks_.reset();
  gate_.Close();
}

}  // namespace quillbox
