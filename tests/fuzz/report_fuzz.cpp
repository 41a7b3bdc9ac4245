// Report texts and stored records of any content, through the evaluation and the statistics texts.
#include <array>

#include "evaluation/account_evaluation.h"
#include "evaluation/stats_text.h"
#include "fuzz/fuzz_input.h"
#include "region/regional_settings.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::string_view kReports[] = {"All", "AdSense for Content", "AdSense for Search",
                                         "Referrals", "none"};
constexpr std::string_view kRegions[] = {"en-US", "de-DE", "fr-FR", "de-CH"};
constexpr std::size_t kMostDays = 7;

EvaluationInput TakeInput(std::string_view& in) {
  EvaluationInput input;
  input.DataToDownload = kReports[TakeByte(in) % std::size(kReports)];
  const auto text = [&in] { return TakeText(in, '\0'); };
  input.Content = text();
  input.Search = text();
  input.Referral = text();
  input.StoredStats = text();
  input.StoredHistory = text();
  input.LastDate = text();
  return input;
}

// One of the texts at a time, and of its lines two: most of what is in them can't be converted,
// which takes long.
void BuildText(unsigned which, const std::string& record, const std::string& otherRecord,
               const RegionalSettings& region) {
  constexpr std::string_view kValues = "ABCDEFGHIJKLM";
  const std::string values = {kValues[which / 3 % kValues.size()],
                              kValues[which / 16 % kValues.size()]};
  if (which % 3 == 0) OneAccountStatsText(values, record, 2007, region);
  if (which % 3 == 1) {
    AllAccountsStatsText(values, std::array{record, otherRecord}, 2007, region);
  }
  if (which % 3 == 2) Require(StatsPopupItems(record, region).size() <= stats_field::kCount);
}

void Evaluate(EvaluationInput input, unsigned text, const RegionalSettings& region) {
  const EvaluationDecision first = EvaluateReports(input, region);
  Require(SplitText(first.History, kListSeparator).size() <= kMostDays);
  Require(first.GatePassed || first.Changes.Empty());
  Require(!first.BalloonWanted);

  BuildText(text, StoredRecord(first.Stats), input.StoredStats, region);
}

}  // namespace
}  // namespace quillbox

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillbox;
  static const std::array<RegionalSettings, std::size(kRegions)> regions = [] {
    std::array<RegionalSettings, std::size(kRegions)> built;
    for (std::size_t i = 0; i < built.size(); ++i) built[i] = BuiltInRegion(kRegions[i]).value();
    return built;
  }();
  std::string_view in = TextOf(data, size);
  const RegionalSettings& region = regions[TakeByte(in) % regions.size()];
  const unsigned text = TakeByte(in);
  Evaluate(TakeInput(in), text, region);
  return 0;
}
