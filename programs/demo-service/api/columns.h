// The columns that a report of the API can have.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "reports/day_figures.h"
#include "reports/report_query.h"

namespace quillbox {

// What one row's figures are for, before rows of equal dimensions are joined.
struct Combination {
  std::chrono::sys_days Day;
  Product Of = Product::kContent;
  std::string_view Channel;  // empty when nothing in the report asks for channels
};

struct Dimension {
  std::string_view Name;
  std::string (*Text)(const Combination&);
};

struct Metric {
  std::string_view Name;
  std::string_view Type;  // as the header says it
  std::string (*Text)(const DayFigures&);
};

// Null for a name that is none.
const Dimension* FindDimension(std::string_view name);
const Metric* FindMetric(std::string_view name);

// Whether it tells channels apart.
bool ConcernsChannels(const Dimension& dimension);

}  // namespace quillbox
