#include "reports/reports_win.h"

#include <utility>

#include "config/atomic_write.h"
#include "evaluation/report_row.h"
#include "platform/forms.h"
#include "platform/host.h"
#include "platform/timing.h"
#include "region/date_text.h"
#include "reports/report_page.h"
#include "reports/report_request.h"
#include "retrieval/fetch_agent.h"

namespace quillbox {
namespace {

constexpr std::chrono::seconds kLongestPageWait{30};

constexpr std::string_view kNotDownloaded = "Error: The requested data could not be downloaded!";
constexpr std::string_view kNoData =
    "No data is available for the selected report and/or date range.";
constexpr std::string_view kNoAccount =
    "Error: There is no AdSense account. Add one in the Options.";

void Fill(ListField& list, std::initializer_list<const char*> items) {
  for (const char* const item : items) list.Add(item);
}

}  // namespace

ReportsWin::ReportsWin(const ProgramContext& program)
    : program_(program), fetch_(program), fields_(std::make_unique<ReportsFields>()) {}

void ReportsWin::Load() {
  if (loaded_) return;
  oldFields_.push_back(std::move(fields_));
  if (runningEvents_ == 0) oldFields_.clear();
  fields_ = std::make_unique<ReportsFields>();
  FillFields();
  loaded_ = true;
  const Loading loading = ++loading_;
  program_.Host.Windows.Load(*this);
  if (!IsCurrent(loading)) return;
  program_.Host.Browser.Navigate("about:blank");
  if (!fields_->Command1.Enabled()) ShowReportMessage(kNoAccount);
}

void ReportsWin::Closed() {
  loaded_ = false;
  if (std::exchange(busy_, false)) fetch_.GiveUp();
}

void ReportsWin::FillFields() {
  ReportsFields& fields = *fields_;
  for (const std::string& account : program_.State.Accounts) fields.Combo1.Add(account);
  for (const ReportTitle& title : ReportTitles()) fields.Combo2.Add(std::string(title.Text));
  Fill(fields.Combo3, {"Last 7 Days", "This Month", "Last Month", "All Time"});
  Fill(fields.Combo4, {"Individual Ad Unit", "Page"});
  fields.Combo2.Clicked = [this] { Combo2_Click(); };
  fields.Command1.Clicked = [this] { Command1_Click(); };
  for (ListField* const list : {&fields.Combo1, &fields.Combo2, &fields.Combo3, &fields.Combo4}) {
    if (!list->Items().empty()) list->Select(0);
  }
  fields.Command1.SetEnabled(!fields.Combo1.Items().empty());
}

void ReportsWin::Combo2_Click() {
  const ReportTitle* const title = FindReportTitle(fields_->Combo2.Text());
  fields_->Combo4.SetEnabled(title == nullptr || title->HasUnit());
}

void ReportsWin::Command1_Click() {
  struct Counted {
    explicit Counted(int& events) : Events(events) { ++Events; }
    ~Counted() { --Events; }
    int& Events;
  };
  const Counted running(runningEvents_);
  const Loading loading = loading_;
  SetBusy(true);
  MakeReport(loading);
  if (IsCurrent(loading)) SetBusy(false);
}

// The choices are those of the moment of the click: the lists stay enabled meanwhile.
void ReportsWin::MakeReport(Loading loading) {
  const ReportTitle* const title = FindReportTitle(fields_->Combo2.Text());
  const std::optional<std::size_t> account = fields_->Combo1.Selected();
  if (title == nullptr || !account) return;
  const bool arrived = fetch_.FetchReport(
      *account, ReportRequestOf(*title, fields_->Combo3.Text(), fields_->Combo4.Text()));
  if (!IsCurrent(loading)) return;
  if (!arrived) return ShowReportMessage(kNotDownloaded);
  const std::string file = WindowReportFiles(program_.Folder).Data;
  const std::optional<ReportData> data =
      BuildReportData(program_.Host.Disk.Read(file).value_or(""), *title, program_.Region,
                      YearOf(program_.Host.Time.LocalTime()));
  if (!data) return ShowReportMessage(kNoData);
  ShowReport(loading, *data, title->Text);
}

void ReportsWin::ShowReport(Loading loading, const ReportData& data, std::string_view title) {
  const std::string file = program_.Folder.DataFile("Report.html");
  PutPageFiles(program_.Host.Disk, program_.Folder);
  // One that can't be written leaves the older page, and that is shown.
  WriteAtomically(program_.Host.Disk, file,
                  BuildReportPage(data, title, PeriodCharacter(program_.Region),
                                  CommaCharacter(program_.Region)));
  program_.Host.Browser.Navigate(file);
  WaitForPage(loading);
}

void ReportsWin::WaitForPage(Loading loading) {
  const Host& host = program_.Host;
  const TimePoint asked = host.Time.Now();
  while (IsCurrent(loading) && host.Browser.ReadyState() != kPageLoaded &&
         host.Time.Now() - asked < kLongestPageWait) {
    host.Events.PumpEvents();
    WaitTicks(host, 1);
  }
}

void ReportsWin::ShowReportMessage(std::string_view text) {
  program_.Host.Browser.SetBody(
      "<SPAN STYLE=\"font-family: verdana; font-size: 11px; color: red;\">" + std::string(text) +
      "</SPAN>");
}

void ReportsWin::SetBusy(bool busy) {
  busy_ = busy;
  fields_->Command1.SetEnabled(!busy);
  if (busyWatcher_) busyWatcher_();
}

}  // namespace quillbox
