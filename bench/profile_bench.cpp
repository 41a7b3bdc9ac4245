// A settings file of a person with very many accounts.
#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "config/profile_file.h"
#include "config/setting_keys.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::string_view kRecord =
    "1/31/07|||1234|||56|||4.54%|||$1.23|||$4.56|||$7.89|||12345|||"
    "567|||4.59%|||$1.20|||$45.67|||$8.00";
constexpr std::string_view kHistory = "1234|||2345|||3456|||4567|||5678|||6789|||7890";

// Both keys of each account.
std::vector<SettingChange> AccountChanges(std::int64_t accounts) {
  std::vector<SettingChange> changes;
  for (std::int64_t i = 0; i < accounts; ++i) {
    const AccountKeys keys("Account number " + std::to_string(i));
    for (const auto& [key, value] :
         {std::pair{keys.Impressions(), kHistory}, {keys.Stats(), kRecord}}) {
      changes.push_back({std::string(key.Section), std::string(key.Key), std::string(value)});
    }
  }
  return changes;
}

std::string ProfileText(std::span<const SettingChange> changes) {
  std::string text = "[General]\r\nUSE24HOUR=True\r\n[Accounts]\r\n";
  for (const SettingChange& c : changes) text += UpperCase(c.Key) + "=" + *c.Value + "\r\n";
  return text;
}

// A disk that costs nothing, so that the work on the text is what is measured.
class OneFile : public Files {
 public:
  explicit OneFile(std::string content) : content_(std::move(content)) {}
  bool Exists(const std::string&) override { return true; }
  std::optional<std::uint64_t> Size(const std::string&) override { return content_.size(); }
  std::optional<std::string> Read(const std::string&) override { return content_; }
  bool WriteNew(const std::string&, const std::string& content) override {
    written_ = content;
    return true;
  }
  bool Flush(const std::string&) override { return true; }
  bool Rename(const std::string&, const std::string&) override {
    content_.swap(written_);
    return true;
  }
  bool Remove(const std::string&) override { return true; }
  std::vector<std::string> List(const std::string&, const std::string&) override { return {}; }

 private:
  std::string content_, written_;
};

// One key, the last one of the file: the time for a refresh's single read.
void ReadLastKey(benchmark::State& state) {
  const std::vector<SettingChange> changes = AccountChanges(state.range(0));
  const std::string text = ProfileText(changes);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ReadProfileValue(text, changes.back().Section, changes.back().Key));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadLastKey)->Arg(1)->Arg(201)->Arg(2010)->Arg(20100)->Complexity(benchmark::oN);

// Every key once, each from the file anew, as the store does.
void ReadEveryKey(benchmark::State& state) {
  const std::vector<SettingChange> changes = AccountChanges(state.range(0));
  OneFile file(ProfileText(changes));
  for (auto _ : state) {
    for (const SettingChange& c : changes) {
      benchmark::DoNotOptimize(IniRead(file, c.Section, c.Key, "a.ini"));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(changes.size()));
}
BENCHMARK(ReadEveryKey)->Arg(201);

// What one evaluation writes: the history and the record of the last account.
void WriteOneEvaluation(benchmark::State& state) {
  const std::vector<SettingChange> changes = AccountChanges(state.range(0));
  OneFile file(ProfileText(changes));
  for (auto _ : state) IniWrite(file, std::span(changes).last(2), "a.ini");
  state.SetComplexityN(state.range(0));
}
BENCHMARK(WriteOneEvaluation)->Arg(1)->Arg(201)->Arg(2010)->Arg(20100)->Complexity(benchmark::oN);

// Every key in one batch.
void WriteEveryKey(benchmark::State& state) {
  const std::vector<SettingChange> changes = AccountChanges(state.range(0));
  OneFile file(ProfileText(changes));
  for (auto _ : state) IniWrite(file, changes, "a.ini");
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(changes.size()));
}
BENCHMARK(WriteEveryKey)->Arg(201);

}  // namespace
}  // namespace quillbox
