// Requests a second of a batch: 31-day reports, answered by the whole way from descriptor to
// descriptor. The goal is 20,000 on one core.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>

#include "quillbox-replay/batch.h"
#include "quillbox-replay/formats/json.h"

namespace quillbox {
namespace {

constexpr int kDays = 31;
constexpr int kRequests = 1000;

// A month to date, as the service sends it: grouped counts, dollar amounts, rates in percent.
std::string Report(bool referral) {
  const std::string signUps = referral ? "\t1" : "";
  std::string text = "Date\tPage impressions\tClicks\tPage CTR\tPage eCPM\tEarnings\n";
  for (int day = 1; day <= kDays; ++day) {
    text += "1/" + std::to_string(day) + "/2007\t" + std::to_string(1000 + 7 * day) + "\t" +
            std::to_string(10 + day) + "\t1.43%" + signUps + "\t$2.50\t$3.75\n";
  }
  text += "Totals\t45123\t512\t1.13%" + signUps + "\t$2.41\t$1108.92\n";
  return text + "Averages\t1455\t16\t1.13%" + signUps + "\t$2.41\t$35.77\n";
}

class RequestText {
 public:
  RequestText() : writer_(text_) { writer_.BeginObject(); }

  RequestText& Object(std::string_view name) {
    writer_.Name(name);
    writer_.BeginObject();
    return *this;
  }
  RequestText& Text(std::string_view name, std::string_view text) {
    writer_.Name(name);
    writer_.Text(text);
    return *this;
  }
  RequestText& Raw(std::string_view name, std::string_view json) {
    writer_.Name(name);
    writer_.Raw(json);
    return *this;
  }
  RequestText& End() {
    writer_.EndObject();
    return *this;
  }
  std::string Line() {
    End();
    return text_ + "\n";
  }

 private:
  std::string text_;
  JsonWriter writer_;
};

// The account has a record and a full history, the date is new, and the balloon comes.
std::string EvaluateRequest(std::string_view dataToDownload) {
  RequestText request;
  request.Text("op", "evaluate").Raw("id", "1").Text("region", "en-US");
  request.Text("now", "2007-01-31T09:05:00").Text("account", "My site");
  request.Raw("accounts", R"(["My site","Other"])");
  request.Raw("soundFiles", R"j(["up.wav","clicks.wav","(None)","(None)","earn.wav","done.wav"])j");
  request.Object("settings");
  request.Object("Misc").Text("LastDate", "1/30/2007").End();
  request.Object("AdSense").Text("PrimaryAccount", "My site").End();
  request.Object("TrayIcon").Text("ShowBalloonWhen", "Clicks Changes").End();
  request.Object("TrayTooltip").Text("Values", "ABCDEFGHIJKLM");
  request.Text("DataToDownload", dataToDownload).End();
  request.Object("Accounts");
  request.Text("My site",
               "09:01|||1/30/2007|||1300|||12|||1.2%|||2.41|||3.11|||$2.10|||44000|||500|||1.1%|||"
               "2.40|||1100.20");
  request.Text("My site Impressions", "1200|||1100|||1300|||1250|||1190|||1000|||990").End().End();
  request.Object("files").Text("content", Report(false)).Text("search", Report(false));
  return request.Text("referral", Report(true)).End().Line();
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

void Batch(benchmark::State& state, std::string_view dataToDownload) {
  const std::string line = EvaluateRequest(dataToDownload);
  std::string answer;
  AnswerRequest(line, answer);
  if (!answer.starts_with("{\"ok\":true,")) return state.SkipWithError(answer.c_str());

  const File requests(std::tmpfile(), std::fclose);
  const File answers(std::fopen("/dev/null", "w"), std::fclose);
  for (int i = 0; i < kRequests; ++i) std::fwrite(line.data(), 1, line.size(), requests.get());
  std::fflush(requests.get());

  for (auto _ : state) {
    lseek(fileno(requests.get()), 0, SEEK_SET);
    if (RunBatch(fileno(requests.get()), fileno(answers.get())) != 0) {
      state.SkipWithError("the batch failed");
    }
  }
  state.SetItemsProcessed(state.iterations() * kRequests);
  state.SetBytesProcessed(state.iterations() * kRequests * static_cast<std::int64_t>(line.size()));
}

BENCHMARK_CAPTURE(Batch, EvaluateAllReports, "All");
BENCHMARK_CAPTURE(Batch, EvaluateOneReport, "AdSense for Content");

}  // namespace
}  // namespace quillbox
