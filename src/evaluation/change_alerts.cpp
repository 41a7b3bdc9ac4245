#include "evaluation/change_alerts.h"

#include <algorithm>
#include <string>

#include "config/setting_keys.h"
#include "region/conversions.h"
#include "region/failure_rule.h"

namespace quillbox {
namespace {

// Each figure is compared as the type that its conversion gives.
auto Rate(std::string text, const RegionalSettings& region) {
  std::erase(text, '%');
  return ToDecimal(text, region);
}

template <auto Convert>
bool Rose(const std::string& fresh, const std::string& stored, const RegionalSettings& region) {
  return Convert(fresh, region) > Convert(stored, region);
}

template <auto Convert>
bool AboveZero(const std::string& fresh, const std::string&, const RegionalSettings& region) {
  return Convert(fresh, region) > decltype(Convert(fresh, region)){};
}

bool Differs(const std::string& fresh, const std::string& stored, const RegionalSettings& region) {
  return ToLong(fresh, region) != ToLong(stored, region);
}

using ChangeTest = bool (*)(const std::string& fresh, const std::string& stored,
                            const RegionalSettings& region);

struct FigureTests {
  Figure Name;
  std::string AccountStats::*Fresh;
  std::size_t Stored;
  ChangeTest OnNewDate, OnSameDate;
  std::string_view BalloonText;
};

constexpr FigureTests kTests[] = {
    {Figure::kImpressions, &AccountStats::Impressions, stats_field::kImpressions, Differs,
     Rose<ToLong>, kBalloonImpressions},
    {Figure::kClicks, &AccountStats::Clicks, stats_field::kClicks, AboveZero<ToLong>, Rose<ToLong>,
     kBalloonClicks},
    {Figure::kRate, &AccountStats::Ctr, stats_field::kCtr, AboveZero<Rate>, Rose<Rate>,
     kBalloonRate},
    {Figure::kCpm, &AccountStats::Ecpm, stats_field::kEcpm, AboveZero<ToCurrency>, Rose<ToCurrency>,
     kBalloonCpm},
    {Figure::kEarnings, &AccountStats::Earnings, stats_field::kEarnings, AboveZero<ToCurrency>,
     Rose<ToCurrency>, kBalloonEarnings},
};

}  // namespace

bool GatePasses(const AccountStats& fresh, const Cells& stored, std::string_view lastDate,
                const RegionalSettings& region) {
  return fresh.ReportDate != lastDate || TrueOrFailed([&] {
           return Rose<ToLong>(fresh.Impressions, stored.At(stats_field::kImpressions), region) ||
                  Rose<ToLong>(fresh.Clicks, stored.At(stats_field::kClicks), region);
         });
}

ChangeSet FindChanges(const AccountStats& fresh, const Cells& stored, std::string_view lastDate,
                      const RegionalSettings& region) {
  const bool newDate = fresh.ReportDate != lastDate;
  ChangeSet changes;
  for (const FigureTests& test : kTests) {
    const ChangeTest changed = newDate ? test.OnNewDate : test.OnSameDate;
    if (TrueOrFailed([&] { return changed(fresh.*test.Fresh, stored.At(test.Stored), region); })) {
      changes.Add(test.Name);
    }
  }
  return changes;
}

bool BalloonNamed(std::string_view showBalloonWhen, const ChangeSet& changes) {
  return std::ranges::any_of(kTests, [&](const FigureTests& test) {
    return test.BalloonText == showBalloonWhen && changes.Has(test.Name);
  });
}

}  // namespace quillbox
