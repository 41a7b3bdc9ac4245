// A host whose ports are tried against their contracts: the one of this system, and the simulated
// one.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/agents.h"
#include "platform/process.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "platform/timing.h"

namespace quillbox {

// Each begins with an empty folder and an empty store.
class TriedHost {
 public:
  virtual ~TriedHost() = default;

  virtual Files& Disk() = 0;
  // The path of a file in the empty folder.
  virtual std::string File(const std::string& name) = 0;
  // The empty folder itself.
  virtual std::string Folder() = 0;
  // The file can't be written any more.
  virtual void MakeReadOnly(const std::string& path) = 0;

  virtual PerUserStore& Store() = 0;
  // The same store as another process has it.
  virtual std::unique_ptr<PerUserStore> SameStore() = 0;

  virtual Environment& Variables() = 0;
  // `value` is UTF-8; empty takes the variable out.
  virtual void SetVariable(const std::string& name, const std::string& value) = 0;

  virtual Clock& Time() = 0;
  virtual StartUpEntry& StartUp() = 0;
  virtual NetworkState& Network() = 0;
};

struct HostMaker {
  const char* Name;
  std::unique_ptr<TriedHost> (*Make)();
};

std::unique_ptr<TriedHost> MakeSystemHost();
std::unique_ptr<TriedHost> MakeSimulatedHost();

// Of this system alone.
void SetProcessVariable(const std::string& name,
                        const std::string& value);  // UTF-8; empty: it goes
std::unique_ptr<PerUserStore> MakeStore();
std::unique_ptr<AgentRunner> MakeAgents(const std::string& program);
// What a program finds as its argument when it is handed this text.
std::string AsArgument(const std::string& text);
// Starts a program with one word and goes on; whether that worked.
bool StartBeside(const std::string& program, const std::string& word);

// A batch over some sections with one value in all of them.
inline std::vector<SettingChange> SameValues(const std::string& value) {
  std::vector<SettingChange> changes;
  for (const char* const section : {"Accounts", "AdSense", "Tooltip"}) {
    for (const char* const key : {"one", "two", "three", "four", "five"}) {
      changes.push_back({section, key, value});
    }
  }
  return changes;
}

// A test of a port is a row of its own for each host.
class PortTest : public testing::TestWithParam<HostMaker> {
 protected:
  const std::unique_ptr<TriedHost> host_ = GetParam().Make();
};

#define QUILLBOX_ON_ALL_HOSTS(Suite)                                                   \
  INSTANTIATE_TEST_SUITE_P(Hosts, Suite,                                               \
                           testing::Values(HostMaker{"System", MakeSystemHost},        \
                                           HostMaker{"Simulated", MakeSimulatedHost}), \
                           [](const auto& row) { return std::string(row.param.Name); })

}  // namespace quillbox
