#include "forms/controls.h"

#include <algorithm>

namespace quillbox {

std::string ListField::Text() const {
  return selected_ ? items_[*selected_] : std::string();
}

void ListField::Add(std::string item) {
  items_.push_back(std::move(item));
  Changed();
}

void ListField::Replace(std::size_t index, std::string item) {
  items_.at(index) = std::move(item);
  Changed();
}

void ListField::Remove(std::size_t index) {
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  if (selected_ == index) {
    selected_.reset();
  } else if (selected_ && *selected_ > index) {
    --*selected_;
  }
  Changed();
}

void ListField::ShowSelected(std::size_t index) {
  selected_ = index;
  Changed();
}

void ListField::Select(std::size_t index) {
  ShowSelected(index);
  if (Clicked) Clicked();
}

bool ListField::SelectText(std::string_view text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  if (found == items_.end()) return false;
  Select(static_cast<std::size_t>(found - items_.begin()));
  return true;
}

}  // namespace quillbox
