// What a request to the API's reports asks for, and the columns that it can name.
#pragma once

#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "figures.h"

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

struct ReportFilter {
  const Dimension* Of;
  bool Part;                        // a value needs to occur in the dimension's text only
  std::vector<std::string> Values;  // one of them must fit
};

struct ReportOrder {
  std::size_t Column;  // dimensions first, then metrics
  bool Descending;
};

inline constexpr std::size_t kMostRows = 100'000;

struct ReportRequest {
  std::chrono::sys_days First, Last;
  std::vector<const Dimension*> Dimensions;
  std::vector<const Metric*> Metrics;
  std::vector<ReportFilter> Filters;
  std::vector<ReportOrder> Orders;
  std::size_t Limit = kMostRows;
  std::string Currency;  // empty: the account's
};

// What is wrong with a request, in a sentence for people.
class BadReportRequest : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws BadReportRequest for a parameter that is neither one of these nor one that every address
// of the API takes.
void CheckParameters(const std::multimap<std::string, std::string>& parameters,
                     std::initializer_list<std::string_view> known);

// Throws BadReportRequest.
ReportRequest ParseReportRequest(const std::multimap<std::string, std::string>& parameters,
                                 std::chrono::sys_days today);

}  // namespace quillbox
