#include "ports/tried_host.h"
#include "simulated/simulated_desk.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"
#include "simulated/simulated_time.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

// The store as it is seen from elsewhere.
class StoreFromElsewhere final : public PerUserStore {
 public:
  explicit StoreFromElsewhere(SimulatedStore& store) : store_(store) {}
  std::string Read(std::string_view section, std::string_view key) override {
    return store_.Read(section, key);
  }
  bool Apply(std::span<const SettingChange> changes) override { return store_.Apply(changes); }

 private:
  SimulatedStore& store_;
};

class SimulatedTriedHost final : public TriedHost {
 public:
  Files& Disk() override { return files_; }
  std::string File(const std::string& name) override { return "/d/" + name; }
  std::string Folder() override { return "/d"; }
  void MakeReadOnly(const std::string& path) override { files_.MakeReadOnly(path); }

  PerUserStore& Store() override { return store_; }
  std::unique_ptr<PerUserStore> SameStore() override {
    return std::make_unique<StoreFromElsewhere>(store_);
  }

  Environment& Variables() override { return variables_; }
  void SetVariable(const std::string& name, const std::string& value) override {
    variables_.Set(name, FromUtf8(value).value_or(""));
  }

  Clock& Time() override { return time_; }
  StartUpEntry& StartUp() override { return startUp_; }
  NetworkState& Network() override { return network_; }

 private:
  SimulatedTime time_;
  SimulatedTrace trace_{time_};
  SimulatedFiles files_;
  SimulatedStore store_;
  SimulatedEnvironment variables_;
  SimulatedStartUp startUp_{trace_};
  SimulatedNetwork network_;
};

}  // namespace

std::unique_ptr<TriedHost> MakeSimulatedHost() {
  return std::make_unique<SimulatedTriedHost>();
}

}  // namespace quillbox
