// What a request to the API's reports asks for.
#pragma once

#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "api/columns.h"

namespace quillbox {

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
