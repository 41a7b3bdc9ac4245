// Making a graph's texts of a saved report, beside one pass of reading and splitting the same
// bytes.
#include "reports/report_data.h"

#include <benchmark/benchmark.h>

#include <chrono>

#include "bench/saved_report.h"
#include "region/date_text.h"

namespace quillbox {
namespace {

constexpr int kMonth = 31;
constexpr int kYear = 365;
constexpr int kTwentyYears = 7305;
constexpr int kManyChannels = 400;

// Every cell in double quotes; without channels a plain report.
std::string Report(std::int64_t days, std::int64_t channels) {
  const RegionalSettings region;
  std::string report = "\"Date\"\t\"Impressions\"\t\"Clicks\"\t\"CTR\"\t\"eCPM\"\t\"Earnings\"\n";
  const auto add = [&](std::int64_t day, const std::string& channel) {
    const std::chrono::sys_days date{std::chrono::year{1990} / 1 / 1};
    report += "\"" + ShortDate(date + std::chrono::days(day), region) + "\"\t" + channel +
              "\"12,345\"\t\"123\"\t\"0.99%\"\t\"$1.23\"\t\"$1,234.56\"\n";
  };
  for (std::int64_t day = 0; day < days; ++day) {
    if (channels == 0) add(day, "");
    for (std::int64_t channel = 0; channel < channels; ++channel) {
      add(day, "\"Channel number " + std::to_string(channel) + "\"\t");
    }
  }
  return report + "\"Totals\"\t\"9,999\"\n\"Averages\"\t\"1\"\n";
}

// Days, and channels.
void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Args({kMonth, 0})->Args({kTwentyYears, 0})->Args({kYear, kManyChannels});
}

void ReadAndSplit(benchmark::State& state) {
  const SavedReport file(Report(state.range(0), state.range(1)));
  for (auto _ : state) {
    const std::string text = file.Read();
    benchmark::DoNotOptimize(CellsOf(text).data());
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK(ReadAndSplit)->Apply(Sizes);

void ReadAndBuild(benchmark::State& state) {
  const SavedReport file(Report(state.range(0), state.range(1)));
  const ReportTitle& title = *FindReportTitle(
      state.range(1) == 0 ? "Ad Performance - Earnings" : "Ad Channel Performance - Earnings");
  const RegionalSettings region;
  for (auto _ : state) {
    benchmark::DoNotOptimize(BuildReportData(file.Read(), title, region, 2007)->Values.data());
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK(ReadAndBuild)->Apply(Sizes);

}  // namespace
}  // namespace quillbox
