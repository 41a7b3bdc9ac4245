#include "reports/report_titles.h"

namespace quillbox {
namespace {

using enum ReportFamily;

constexpr ReportTitle kTitles[] = {
    {"Ad Performance - Impressions", kAd, 1, false},
    {"Ad Performance - Clicks", kAd, 2, false},
    {"Ad Performance - CTR", kAd, 3, true},
    {"Ad Performance - eCPM", kAd, 4, true},
    {"Ad Performance - Earnings", kAd, 5, true},
    {"Ad Channel Performance - Impressions", kChannel, 2, false},
    {"Ad Channel Performance - Clicks", kChannel, 3, false},
    {"Ad Channel Performance - CTR", kChannel, 4, true},
    {"Ad Channel Performance - eCPM", kChannel, 5, true},
    {"Ad Channel Performance - Earnings", kChannel, 6, true},
    {"Search Performance - Queries", kSearch, 1, false},
    {"Search Performance - Clicks", kSearch, 2, false},
    {"Search Performance - CTR", kSearch, 3, true},
    {"Search Performance - eCPM", kSearch, 4, true},
    {"Search Performance - Earnings", kSearch, 5, true},
    {"Referrals - Impressions", kReferrals, 1, false},
    {"Referrals - Clicks", kReferrals, 2, false},
    {"Referrals - CTR", kReferrals, 3, true},
    {"Referrals - Sign-ups", kReferrals, 4, true},
    {"Referrals - eCPM", kReferrals, 5, true},
    {"Referrals - Earnings", kReferrals, 6, true},
};

}  // namespace

std::span<const ReportTitle> ReportTitles() {
  return kTitles;
}

const ReportTitle* FindReportTitle(std::string_view text) {
  for (const ReportTitle& title : kTitles) {
    if (title.Text == text) return &title;
  }
  return nullptr;
}

}  // namespace quillbox
