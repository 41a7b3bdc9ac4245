// The whole program on a simulated host.
#include "simulated/simulated_program.h"

namespace quillbox {

std::string SimulatedProgram::PathOf(std::string_view name) {
  return ApplicationFolder(kFolder, kFolder, '/').DataFile(name);
}

void SimulatedProgram::Set(const SettingKey& key, std::string_view value) {
  Host.Store.Put(key.Section, key.Key, value);
}

std::string SimulatedProgram::Setting(const SettingKey& key) {
  return Host.Store.Read(key.Section, key.Key);
}

void SimulatedProgram::AddAccount(const std::string& name, const std::string& username,
                                  const std::string& password) {
  accounts_.Accounts.push_back(name);
  accounts_.Usernames.push_back(username);
  accounts_.Passwords.push_back(password);
  SettingBatch batch;
  SaveAccountList(batch, accounts_);
  for (const SettingChange& change : batch.Changes()) {
    Host.Store.Put(change.Section, change.Key, change.Value.value_or(""));
  }
}

void SimulatedProgram::UsedBefore() {
  Set(kRuns, "5");
  Set(kCheckForNewVersion, kFalse);
  Set(kCheckPrompted, kTrue);
}

void SimulatedProgram::Start() {
  program_.reset();
  program_ = std::make_unique<Program>(Host.Ports(), ApplicationFolder(kFolder, kFolder, '/'),
                                       Region, Build);
  Host.Connect(program_->Events());
  Host.Do([this] { program_->Main(); });
}

}  // namespace quillbox
