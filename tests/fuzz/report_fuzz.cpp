// Report texts and stored records of any content, through the evaluation and the statistics texts.
#include <array>

#include "evaluation/account_evaluation.h"
#include "evaluation/regions.h"
#include "evaluation/stats_text.h"
#include "fuzz/fuzz_input.h"
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

void Evaluate(EvaluationInput input, const RegionalSettings& region) {
  const EvaluationDecision first = EvaluateReports(input, region);
  Require(SplitText(first.History, kListSeparator).size() <= kMostDays);
  Require(first.GatePassed || first.Changes.Empty());
  Require(!first.BalloonWanted);

  const std::string record = StoredRecord(first.Stats);
  OneAccountStatsText("ABCDEFGHIJKLM", record, 2007, region);
  AllAccountsStatsText("ABCDEFGHIJKLM", std::array{record, input.StoredStats}, 2007, region);
  Require(StatsPopupItems(record, region).size() <= stats_field::kCount);
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
  Evaluate(TakeInput(in), region);
  return 0;
}
