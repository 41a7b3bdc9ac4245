// A list of texts whose reader may ask for more than there are.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "evaluation/failure_rule.h"

namespace quillbox {

// The cells of a report's row, or the fields of a stored record; numbered from 0.
class Cells {
 public:
  Cells() = default;
  explicit Cells(std::vector<std::string> texts) : texts_(std::move(texts)) {}

  // Throws StepFailed when there is no such cell.
  const std::string& At(std::size_t number) const {
    if (number >= texts_.size()) throw StepFailed{};
    return texts_[number];
  }
  std::string& At(std::size_t number) {
    if (number >= texts_.size()) throw StepFailed{};
    return texts_[number];
  }

  std::size_t Count() const { return texts_.size(); }

 private:
  std::vector<std::string> texts_;
};

}  // namespace quillbox
