// Evaluating a report, beside one pass of reading and splitting the same bytes.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/saved_report.h"
#include "evaluation/account_evaluation.h"

namespace quillbox {
namespace {

constexpr int kMonth = 31;
constexpr int kHuge = 100'000;

// A content report of so many days, every cell in double quotes.
std::string ContentReport(std::int64_t days) {
  std::string report = "\"Date\"\t\"Impressions\"\t\"Clicks\"\t\"CTR\"\t\"eCPM\"\t\"Earnings\"\n";
  for (std::int64_t day = 0; day < days; ++day) {
    report += "\"1/31/2007\"\t\"12,345\"\t\"123\"\t\"0.99%\"\t\"$1.23\"\t\"$1,234.56\"\n";
  }
  return report + "\"Totals\"\t\"9,999\"\t\"999\"\t\"0.99%\"\t\"$1.23\"\t\"$9,234.56\"\n" +
         "\"Averages\"\t\"1\"\t\"1\"\t\"0.99%\"\t\"$1.23\"\t\"$1.00\"\n";
}

void ReadAndSplit(benchmark::State& state) {
  const SavedReport file(ContentReport(state.range(0)));
  for (auto _ : state) {
    const std::string text = file.Read();
    benchmark::DoNotOptimize(CellsOf(text).data());
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK(ReadAndSplit)->Arg(kMonth)->Arg(kHuge / 10)->Arg(kHuge);

void ReadAndEvaluate(benchmark::State& state) {
  const SavedReport file(ContentReport(state.range(0)));
  const RegionalSettings region;
  EvaluationInput input;
  input.DataToDownload = "AdSense for Content";
  input.LastDate = "1/31/2007";
  input.StoredStats = "9:05 AM|||1/31/2007|||12,000|||120|||0.99%|||1.20|||1,200.00|||$9.00";
  input.StoredHistory = "10000|||11000|||12000|||13000|||14000|||15000|||16000";
  for (auto _ : state) {
    input.Content = file.Read();
    benchmark::DoNotOptimize(EvaluateReports(input, region).GatePassed);
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK(ReadAndEvaluate)->Arg(kMonth)->Arg(kHuge / 10)->Arg(kHuge);

}  // namespace
}  // namespace quillbox
