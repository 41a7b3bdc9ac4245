#include "reports/channel_list.h"

namespace quillbox {
namespace {

constexpr char kMark = '^';

template <typename Take>
void ForEachPart(std::string_view name, Take take) {
  for (;;) {
    const std::size_t end = name.find(kMark);
    take(name.substr(0, end));
    if (end == name.npos) return;
    name.remove_prefix(end + 1);
  }
}

}  // namespace

void ChannelList::Add(std::string_view name) {
  if (!known_.insert(name).second) return;
  if (name.find(kMark) != name.npos && HoldsRun(name)) return;
  names_.push_back(name);
  text_ += name;
  text_ += kMark;
  ForEachPart(name, [this](std::string_view part) {
    known_.insert(part);
    if (runs_) runs_->Append(part);
  });
}

bool ChannelList::HoldsRun(std::string_view name) {
  if (!runs_ && searchesLeft_ >= text_.size()) {
    searchesLeft_ -= text_.size();
    return text_.find(kMark + std::string(name) + kMark) != text_.npos;
  }
  if (!runs_) {
    runs_.emplace();
    for (const std::string_view added : names_) {
      ForEachPart(added, [this](std::string_view part) { runs_->Append(part); });
    }
  }
  std::vector<std::string_view> parts;
  ForEachPart(name, [&parts](std::string_view part) { parts.push_back(part); });
  return runs_->Holds(parts);
}

std::string ChannelList::Names() const {
  return text_.size() > 1 ? text_.substr(1, text_.size() - 2) : "";
}

}  // namespace quillbox
