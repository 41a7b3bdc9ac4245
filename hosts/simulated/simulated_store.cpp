// The per-user store in memory.
#include "simulated/simulated_store.h"

#include <algorithm>
#include <array>

namespace quillbox {
namespace {

bool HoldsSecret(std::string_view key) {
  constexpr std::array<std::string_view, 4> kSecrets = {"Passwords", "Usernames", "Password",
                                                        "Username"};
  return std::ranges::any_of(kSecrets,
                             [&](std::string_view name) { return EqualIgnoringCase(name, key); });
}

}  // namespace

std::string ShownValue(std::string_view key, std::string_view value) {
  return HoldsSecret(key) ? "..." : std::string(value);
}

bool SimulatedStore::Name::operator<(const Name& other) const {
  const LessIgnoringCase less;
  if (less(Section, other.Section)) return true;
  if (less(other.Section, Section)) return false;
  return less(Key, other.Key);
}

void SimulatedStore::Change(Entries& entries, const SettingChange& change) {
  const Name name{change.Section, change.Key};
  if (change.Value) {
    entries[name] = *change.Value;
  } else {
    entries.erase(name);
  }
}

void SimulatedStore::Put(std::string_view section, std::string_view key, std::string_view value) {
  SettingChange change{std::string(section), std::string(key), std::string(value)};
  if (value.empty()) change.Value.reset();
  Change(entries_, change);
  Change(onDisk_, change);
}

std::vector<SimulatedStore::Entry> SimulatedStore::All() const {
  std::vector<Entry> all;
  for (const auto& [name, value] : entries_) all.push_back({name.Section, name.Key, value});
  return all;
}

std::string SimulatedStore::Read(std::string_view section, std::string_view key) {
  const auto entry = entries_.find(Name{std::string(section), std::string(key)});
  return entry == entries_.end() ? std::string() : entry->second;
}

bool SimulatedStore::Apply(std::span<const SettingChange> changes) {
  std::vector<SettingChange> batch(changes.begin(), changes.end());
  if (trace_ != nullptr) {
    trace_->Keep(batches_, batch);
  } else {
    batches_.push_back(std::move(batch));
  }
  for (const SettingChange& change : changes) {
    Tell(change);
    if (keeps_ != StoreKeeps::kNothing) Change(entries_, change);
    if (keeps_ == StoreKeeps::kAll) Change(onDisk_, change);
  }
  return keeps_ != StoreKeeps::kNothing;
}

void SimulatedStore::Tell(const SettingChange& change) {
  if (trace_ == nullptr) return;
  const std::string name = change.Section + "/" + change.Key;
  std::vector<std::pair<std::string, std::string>> parts = {{"section", change.Section},
                                                            {"key", change.Key}};
  if (!change.Value) {
    trace_->Add("unset", name, std::move(parts));
    return;
  }
  const std::string shown = ShownValue(change.Key, *change.Value);
  parts.emplace_back("value", shown);
  trace_->Add("store", name + "=" + shown, std::move(parts));
}

}  // namespace quillbox
