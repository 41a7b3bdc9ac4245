// Files that fail on demand, and that forget what was not flushed when the power goes.
#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/storage.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

enum class DiskState { kWorks, kFull, kReadOnly };

// Folders need not be made: every path with a "/" in it has one. Steps are the calls of WriteNew,
// Flush, Rename and Remove.
class SimulatedFiles : public Files {
 public:
  using Contents = std::map<std::string, std::string>;

  // Files that have been there for long. `seed` decides what a power failure leaves.
  SimulatedFiles(std::initializer_list<Contents::value_type> contents = {}, std::uint64_t seed = 0);

  // From here on what succeeds is told to `trace`, which must outlive this object; null ends it.
  void TraceTo(SimulatedTrace* trace) { trace_ = trace; }

  // A file that has been there for long, or that is gone for long.
  void Put(const std::string& path, const std::string& content);
  void Take(const std::string& path);

  // What another program does: makes the file or gives it new content, neither flushed nor traced.
  // False when the disk doesn't take it.
  bool WriteFromOutside(const std::string& path, const std::string& content);

  void SetDisk(DiskState state) { disk_ = state; }
  void SetReadable(const std::string& path, bool readable);
  // From now on nothing takes its place.
  void MakeReadOnly(const std::string& path) { readOnly_.insert(path); }

  // In the step number `step` from now, counted from 0, the power goes: whether that step took
  // effect is open, all later calls do nothing and read nothing.
  void LosePowerAtStep(int step) { stepsLeft_ = step; }
  bool HasPower() const { return power_; }

  // The power is back. What was flushed is as it was. Of changes of names since the folder's last
  // flush the first few have happened, in their order, of many all but the last 256; content that
  // was not flushed is there wholly, cut, or gone.
  void PowerBack();

  // Steps since the beginning.
  int Steps() const { return steps_; }

  Contents All() const;

  // Files
  bool Exists(const std::string& path) override;
  std::optional<std::uint64_t> Size(const std::string& path) override;
  std::optional<std::string> Read(const std::string& path) override;
  bool WriteNew(const std::string& path, const std::string& content) override;
  bool Flush(const std::string& path) override;
  bool Rename(const std::string& from, const std::string& to) override;
  bool Remove(const std::string& path) override;
  std::vector<std::string> List(const std::string& folder, const std::string& pattern) override;

 private:
  struct Body {
    std::string Content;
    std::string OnDisk;
    bool Flushed = false;
  };
  using Names = std::map<std::string, std::shared_ptr<Body>>;  // a null body: the name goes

  bool BeginStep();
  bool MayBeReplaced(const std::string& path) const;
  void ChangeNames(const Names& change);
  void SettleBody(Body& body);
  void Tell(const char* what, const std::string& text);

  Names names_;
  Names namesOnDisk_;
  std::deque<Names> unflushed_;  // changes of names; each happens wholly or not at all
  std::set<std::string> unreadable_, readOnly_;
  DiskState disk_ = DiskState::kWorks;
  bool power_ = true;
  std::optional<int> stepsLeft_;
  int steps_ = 0;
  std::mt19937_64 random_;
  SimulatedTrace* trace_ = nullptr;
};

}  // namespace quillbox
