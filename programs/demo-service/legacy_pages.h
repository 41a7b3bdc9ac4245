// The legacy service: its reports, which a request asks for, and its pages with their sign-in.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "answers.h"
#include "figures.h"
#include "service_options.h"

namespace quillbox {

enum class DateRange { kLast7Days, kThisMonth, kLastMonth, kAllTime };

struct ReportQuery {
  Product Of = Product::kContent;
  DateRange Range = DateRange::kThisMonth;
  bool ByChannel = false;  // a line for each day and channel
};

// Reads "product" (afc, afs, ref), "dateRange.simpleDate" and "reportType"; other keys are ignored.
// Nothing when one of the first two is missing or unknown.
std::optional<ReportQuery> ParseReportQuery(
    const std::multimap<std::string, std::string>& parameters);

// Tab-separated lines, each ended by one line feed: a heading, one line for each day (and channel)
// of the range, oldest first and today last, then two summary lines, totals and averages. 6 cells a
// line; referrals have sign-ups in front of the last two, channel reports the channel behind the
// date. Dates are written yyyy-mm-dd, which reads the same in every region; numbers have no group
// separators, amounts two decimals and no symbol.
std::string ReportTable(const ReportQuery& query, std::uint64_t seed, const std::string& account,
                        const Moment& moment);

// The sign-in with its cookie, and the reports behind it. May be used from any thread.
class LegacyPages {
 public:
  // `clock` must outlive the pages.
  LegacyPages(const ServiceOptions& options, const DemoClock& clock);

  // A new cookie and the way on, or the sign-in page again when address or password is wrong. Both
  // in UTF-8.
  GoodAnswer SignIn(const std::string& email, const std::string& password);

  // The account of the request that carries this "Cookie" header, empty when it isn't signed in.
  std::string AccountOf(const std::string& cookieHeader) const;

  // The report that `parameters` ask for. `account`: empty for one that isn't signed in.
  GoodAnswer Report(const std::multimap<std::string, std::string>& parameters,
                    const std::string& account) const;

 private:
  const std::map<std::string, std::string> passwords_;  // by e-mail address
  const std::uint64_t seed_;
  const DemoClock& clock_;
  mutable std::mutex mutex_;
  std::map<std::string, std::string> emails_;  // by cookie value
};

}  // namespace quillbox
