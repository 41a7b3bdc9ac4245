// Any report under any title: its texts have the shape that the page takes apart.
#include "fuzz/fuzz_input.h"
#include "region/regional_settings.h"
#include "reports/report_data.h"
#include "reports/report_page.h"

namespace quillbox {
namespace {

constexpr std::string_view kRegions[] = {"en-US", "de-DE", "fr-FR", "sv-SE"};

void CheckData(std::string_view text, const ReportTitle& title, const RegionalSettings& region) {
  const auto data = BuildReportData(std::string(text), title, region, 2007);
  if (!data) return;
  const auto lines = std::ranges::count(text, '\n');
  Require(std::ranges::count(data->Labels, '<') <= lines + 1);
  Require(data->Labels.size() + data->Values.size() <= 64 * (text.size() + 1));
  Require(title.OfChannels() || data->Channels.empty());
  for (const std::string* part : {&data->Labels, &data->Values, &data->Channels}) {
    Require(part->find_first_of("\"\n\t") == part->npos);
  }
  const std::string page = BuildReportPage(*data, title.Text, ".", ",");
  Require(page.size() > data->Labels.size() + data->Values.size() + data->Channels.size());
}

}  // namespace
}  // namespace quillbox

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillbox;
  std::string_view in = TextOf(data, size);
  const ReportTitle& title = ReportTitles()[TakeByte(in) % ReportTitles().size()];
  const RegionalSettings region =
      BuiltInRegion(kRegions[TakeByte(in) % std::size(kRegions)]).value();
  CheckData(in, title, region);
  return 0;
}
