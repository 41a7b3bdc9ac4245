// The page of a saved report, for people.
#include <iostream>

#include "config/atomic_write.h"
#include "evaluation/date_text.h"
#include "evaluation/report_cells.h"
#include "quillbox-replay/commands.h"
#include "quillbox-replay/time_argument.h"
#include "reports/report_data.h"
#include "reports/report_page.h"
#include "system/system_clock.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

const ReportTitle& TitleNamed(const std::string& text) {
  const ReportTitle* const title = FindReportTitle(text);
  if (title == nullptr) throw UsageError("unknown report title " + text);
  return *title;
}

ReportData DataOf(const std::string& file, const ReportTitle& title,
                  const RegionalSettings& region) {
  std::optional<std::string> text = SystemFiles().Read(file);
  if (!text) throw UsageError("can't read the report " + file);
  std::optional<ReportData> data =
      BuildReportData(*std::move(text), title, region, YearOf(SystemClock().LocalTime()));
  if (!data) throw UsageError("there is no data in the report " + file);
  return *std::move(data);
}

}  // namespace

int ReportPageCommand(Arguments arguments) {
  const Options options(arguments, {"--title", "--reports", "--region", "--out"}, {});
  const ReportTitle& title = TitleNamed(options.Needed("--title"));
  const RegionalSettings region = RegionNamed(options.Value("--region").value_or("en-US"));
  const std::string out = options.Needed("--out");
  const ReportData data = DataOf(options.Needed("--reports"), title, region);
  const std::string page =
      BuildReportPage(data, title.Text, PeriodCharacter(region), CommaCharacter(region));
  SystemFiles files;
  if (!WriteAtomically(files, out, page)) throw UsageError("can't write the page " + out);
  std::cout << "Page written to " << out << '\n';
  return 0;
}

}  // namespace quillbox
