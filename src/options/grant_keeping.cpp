#include "options/grant_keeping.h"

#include <utility>

#include "platform/agents.h"
#include "retrieval/fetch_agent.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

void AddGrantsOf(const AccountList& list, std::set<std::string>& names) {
  for (const std::string& password : list.Passwords) {
    if (IsGrantName(password)) names.insert(password);
  }
}

// The page to open with was written when the Options opened: a store that hasn't even that keeps
// nothing or can't be read. A list without its passwords could not be unscrambled.
bool IsCertain(const AccountList& stored, const SettingsStore& store) {
  return !store.ReadSetting(kLastOption).empty() &&
         stored.Passwords.size() == stored.Accounts.size();
}

}  // namespace

void GrantKeeping::Opened() {
  AddGrantsOf(program_.State, noted_);
  AddGrantsOf(LoadAccountList(program_.Store), noted_);
}

void GrantKeeping::Closed() {
  const std::set<std::string> noted = std::exchange(noted_, {});
  const AccountList stored = LoadAccountList(program_.Store);
  if (!IsCertain(stored, program_.Store)) return;
  std::set<std::string> inUse;
  AddGrantsOf(program_.State, inUse);
  AddGrantsOf(stored, inUse);
  for (const std::string& name : noted) {
    if (inUse.contains(name)) continue;
    program_.Host.Grants.Forget(name, StoredProxyVariables(program_.Store));
  }
}

}  // namespace quillbox
