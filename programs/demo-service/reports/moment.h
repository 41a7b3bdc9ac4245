// When a report is made.
#pragma once

#include <chrono>

namespace quillbox {

struct Moment {
  std::chrono::sys_days Today;
  std::chrono::seconds Grown;  // how far the figures of today have come; may exceed a day

  // How far those of a day of the past, or of today, have come.
  std::chrono::seconds GrownOn(std::chrono::sys_days day) const {
    return day == Today ? Grown : std::chrono::days(1);
  }
};

}  // namespace quillbox
