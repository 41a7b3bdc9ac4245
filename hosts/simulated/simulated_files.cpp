// Files that fail on demand, and that forget what was not flushed when the power goes.
#include "simulated/simulated_files.h"

#include "text/text_list.h"

namespace quillbox {
namespace {

// A system flushes by itself at last.
constexpr std::size_t kMostUnflushed = 256;

template <typename Names>
void Apply(Names& names, const Names& change) {
  for (const auto& [name, body] : change) {
    if (body) {
      names[name] = body;
    } else {
      names.erase(name);
    }
  }
}

}  // namespace

SimulatedFiles::SimulatedFiles(std::initializer_list<Contents::value_type> contents,
                               std::uint64_t seed)
    : random_(seed) {
  for (const auto& [path, content] : contents) Put(path, content);
}

void SimulatedFiles::Put(const std::string& path, const std::string& content) {
  names_[path] = namesOnDisk_[path] = std::make_shared<Body>(Body{content, content, true});
}

void SimulatedFiles::Take(const std::string& path) {
  names_.erase(path);
  namesOnDisk_.erase(path);
}

bool SimulatedFiles::WriteFromOutside(const std::string& path, const std::string& content) {
  if (!power_ || disk_ != DiskState::kWorks) return false;
  const auto file = names_.find(path);
  if (file == names_.end()) {
    ChangeNames({{path, std::make_shared<Body>(Body{content, "", false})}});
  } else {
    file->second->Content = content;
    file->second->Flushed = false;
  }
  return true;
}

void SimulatedFiles::SetReadable(const std::string& path, bool readable) {
  if (readable) {
    unreadable_.erase(path);
  } else {
    unreadable_.insert(path);
  }
}

// False when there is no power any more. In the step that loses it the caller goes on, and leaves
// nothing but unflushed changes, so that PowerBack decides whether the step took effect.
bool SimulatedFiles::BeginStep() {
  if (!power_) return false;
  ++steps_;
  if (stepsLeft_ && (*stepsLeft_)-- == 0) {
    stepsLeft_.reset();
    power_ = false;
  }
  return true;
}

void SimulatedFiles::ChangeNames(const Names& change) {
  Apply(names_, change);
  unflushed_.push_back(change);
  if (unflushed_.size() <= kMostUnflushed) return;
  Apply(namesOnDisk_, unflushed_.front());
  unflushed_.pop_front();
}

void SimulatedFiles::PowerBack() {
  const std::size_t happened = random_() % (unflushed_.size() + 1);
  for (std::size_t i = 0; i < happened; ++i) Apply(namesOnDisk_, unflushed_[i]);
  unflushed_.clear();
  names_ = namesOnDisk_;
  for (const auto& [path, body] : names_) SettleBody(*body);
  power_ = true;
  stepsLeft_.reset();
}

void SimulatedFiles::SettleBody(Body& body) {
  if (!body.Flushed) {
    enum : std::uint64_t { kWhole, kCut, kGone, kOutcomes };
    const std::uint64_t outcome = random_() % kOutcomes;
    if (outcome == kWhole) body.OnDisk = body.Content;
    if (outcome == kCut)
      body.OnDisk = body.Content.substr(0, random_() % (body.Content.size() + 1));
  }
  body.Content = body.OnDisk;
  body.Flushed = true;
}

void SimulatedFiles::Tell(const char* what, const std::string& text) {
  if (trace_ != nullptr) trace_->Add(what, text);
}

SimulatedFiles::Contents SimulatedFiles::All() const {
  Contents all;
  for (const auto& [path, body] : names_) all[path] = body->Content;
  return all;
}

bool SimulatedFiles::Exists(const std::string& path) {
  return power_ && names_.contains(path);
}

std::optional<std::uint64_t> SimulatedFiles::Size(const std::string& path) {
  if (!Exists(path)) return {};
  return names_.at(path)->Content.size();
}

std::optional<std::string> SimulatedFiles::Read(const std::string& path) {
  if (!Exists(path) || unreadable_.contains(path)) return {};
  return names_.at(path)->Content;
}

bool SimulatedFiles::WriteNew(const std::string& path, const std::string& content) {
  if (!BeginStep() || disk_ != DiskState::kWorks || names_.contains(path)) return false;
  ChangeNames({{path, std::make_shared<Body>(Body{content, "", false})}});
  Tell("write", path);
  return power_;
}

bool SimulatedFiles::Flush(const std::string& path) {
  if (!BeginStep() || !power_) return false;
  const auto file = names_.find(path);
  if (file != names_.end()) {
    file->second->OnDisk = file->second->Content;
    file->second->Flushed = true;
  } else {
    for (const Names& change : unflushed_) Apply(namesOnDisk_, change);
    unflushed_.clear();
  }
  return true;
}

// What has files in it is a folder.
bool SimulatedFiles::MayBeReplaced(const std::string& path) const {
  const auto inside = names_.lower_bound(path + "/");
  const bool isFolder = inside != names_.end() && inside->first.starts_with(path + "/");
  return !isFolder && !(readOnly_.contains(path) && names_.contains(path));
}

bool SimulatedFiles::Rename(const std::string& from, const std::string& to) {
  if (!BeginStep() || disk_ == DiskState::kReadOnly) return false;
  const auto file = names_.find(from);
  if (file == names_.end() || !MayBeReplaced(to)) return false;
  if (from != to) ChangeNames({{from, nullptr}, {to, file->second}});
  Tell("rename", from + " to " + to);
  return power_;
}

bool SimulatedFiles::Remove(const std::string& path) {
  if (!BeginStep()) return false;
  if (!names_.contains(path)) return true;
  if (disk_ == DiskState::kReadOnly) return false;
  ChangeNames({{path, nullptr}});
  Tell("delete", path);
  return power_;
}

std::vector<std::string> SimulatedFiles::List(const std::string& folder,
                                              const std::string& pattern) {
  std::vector<std::string> found;
  if (!power_) return found;
  const std::string head = folder + "/";
  for (auto file = names_.lower_bound(head); file != names_.end(); ++file) {
    if (!file->first.starts_with(head)) break;
    const std::string name = file->first.substr(head.size());
    if (name.find('/') == std::string::npos && MatchesFilePattern(name, pattern))
      found.push_back(name);
  }
  return found;
}

}  // namespace quillbox
