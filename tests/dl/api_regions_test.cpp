// A report made of the reporting service's answer is read alike in every region.
#include <gtest/gtest.h>

#include "api/tabbed_report.h"
#include "api/wanted_report.h"
#include "evaluation/report_row.h"
#include "region/conversions.h"
#include "region/date_text.h"
#include "region/regional_settings.h"

namespace quillbox {
namespace {

TEST(ApiCells, AreReadAlikeInEveryRegion) {
  std::vector<RegionalSettings> regions;
  for (const char* const name : {"en-US", "en-GB", "de-DE", "fr-FR", "de-CH", "sv-SE", "pt-BR"}) {
    regions.push_back(BuiltInRegion(name).value());
  }
  for (const char* const form : {"yyyy-MM-dd", "yy.MM.dd", "dd.MM.yy", "MM/dd/yyyy"}) {
    regions.push_back({.ShortDate = form});
  }
  for (const RegionalSettings& region : regions) {
    for (const char* const day : {"2026-03-09", "2026-12-01", "2024-02-29"}) {
      EXPECT_EQ(std::chrono::sys_days(ToDate(day, region, 2026)), ParseDay(day))
          << day << " in " << region.ShortDate;
    }
    std::string money = MoneyCell(1234.5);
    FixMoneyCell(money, region);
    EXPECT_EQ(ToCurrency(money, region), 12'345'000) << money << " with " << region.Decimal;
    std::string percent = PercentCell(0.0152);
    FixPercentCell(percent, region);
    EXPECT_EQ(percent, "1" + region.Decimal + "52%");
    EXPECT_EQ(LeadingNumber(CountCell(1234567)), 1234567);
  }
}

}  // namespace
}  // namespace quillbox
