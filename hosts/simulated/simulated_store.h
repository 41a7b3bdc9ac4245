// The per-user store in memory, with switches for stores that don't keep what they are given.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/storage.h"
#include "simulated/simulated_trace.h"
#include "text/code_page.h"

namespace quillbox {

enum class StoreKeeps {
  kAll,
  kNothing,     // each write is lost at once
  kWhileItRuns  // each write is lost when the program ends
};

// A value as a trace, which people hand on, may show it: "..." for those of secret keys.
std::string ShownValue(std::string_view key, std::string_view value);

class SimulatedStore final : public PerUserStore {
 public:
  struct Entry {
    std::string Section, Key;  // with the case in which they were written first
    std::string Value;
  };

  // Null: nothing is traced. The trace must outlive the store.
  explicit SimulatedStore(SimulatedTrace* trace = nullptr) : trace_(trace) {}

  void SetKeeps(StoreKeeps keeps) { keeps_ = keeps; }

  // A value that has been there for long; the empty text takes it out.
  void Put(std::string_view section, std::string_view key, std::string_view value);

  // The program has ended.
  void ProgramEnded() { entries_ = onDisk_; }

  // In the order of sections and keys, case ignored.
  std::vector<Entry> All() const;

  // Every batch that was asked for, in order, whether it was kept or not.
  const std::vector<std::vector<SettingChange>>& Batches() const { return batches_; }

  // PerUserStore
  std::string Read(std::string_view section, std::string_view key) override;
  bool Apply(std::span<const SettingChange> changes) override;

 private:
  struct Name {
    std::string Section, Key;
    bool operator<(const Name& other) const;
  };
  using Entries = std::map<Name, std::string>;

  static void Change(Entries& entries, const SettingChange& change);
  void Tell(const SettingChange& change);

  Entries entries_;
  Entries onDisk_;
  StoreKeeps keeps_ = StoreKeeps::kAll;
  std::vector<std::vector<SettingChange>> batches_;
  SimulatedTrace* trace_;
};

}  // namespace quillbox
