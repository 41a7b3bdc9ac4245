// Evaluating a report, beside one pass of reading and splitting the same bytes.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

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

// The report in a file, as the program finds it; gone at the end.
class ReportFile {
 public:
  explicit ReportFile(std::int64_t days)
      : path_(std::filesystem::temp_directory_path() / "quillbox-evaluation-bench.dat") {
    std::ofstream(path_, std::ios::binary) << ContentReport(days);
  }
  ~ReportFile() { std::filesystem::remove(path_); }
  ReportFile(const ReportFile&) = delete;
  ReportFile& operator=(const ReportFile&) = delete;

  std::string Read() const {
    std::string content(std::filesystem::file_size(path_), '\0');
    std::ifstream(path_, std::ios::binary)
        .read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
  }

  std::int64_t Size() const { return static_cast<std::int64_t>(std::filesystem::file_size(path_)); }

 private:
  std::filesystem::path path_;
};

// The yardstick: every cell of the report as a piece of the text.
std::vector<std::string_view> Split(std::string_view text) {
  std::vector<std::string_view> cells;
  for (std::size_t end = 0; (end = text.find_first_of("\t\n")) != std::string_view::npos;) {
    cells.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return cells;
}

void ReadAndSplit(benchmark::State& state) {
  const ReportFile file(state.range(0));
  for (auto _ : state) {
    const std::string text = file.Read();
    benchmark::DoNotOptimize(Split(text).data());
  }
  state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK(ReadAndSplit)->Arg(kMonth)->Arg(kHuge / 10)->Arg(kHuge);

void ReadAndEvaluate(benchmark::State& state) {
  const ReportFile file(state.range(0));
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
