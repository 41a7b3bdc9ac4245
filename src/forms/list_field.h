// A drop-down list, of which at most one entry is selected.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace quillbox {

// Texts are in the code page. Indexes must be those of entries.
class ListField : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  const std::vector<std::string>& Items() const { return items_; }
  std::optional<std::size_t> Selected() const { return selected_; }

  // The text of the selected entry; empty when none is.
  std::string Text() const;

  // None of these four runs the event. What was selected stays so; removing it leaves nothing
  // selected.
  void Add(std::string item);
  void Replace(std::size_t index, std::string item);
  void Remove(std::size_t index);
  void ShowSelected(std::size_t index);

  // Selects and runs the event, also when the entry was selected before.
  void Select(std::size_t index);

  // The same with the first entry that equals `text`; false, and no change, when none does.
  bool SelectText(std::string_view text);

 private:
  std::vector<std::string> items_;
  std::optional<std::size_t> selected_;
};

}  // namespace quillbox
