#include "reports/report_page.h"

#include <optional>

#include "config/atomic_write.h"

namespace quillbox {
namespace {

std::string Script(std::string_view file) {
  return "<SCRIPT TYPE='text/javascript' SRC='" + std::string(file) + "'></SCRIPT>";
}

std::string Head() {
  return "<HTML><HEAD>" + Script(kGraphScript) + Script(kTipScript) +
         "<LINK REL=\"stylesheet\" HREF=\"" + std::string(kTipStyle) +
         "\" TYPE=\"text/css\"></HEAD>"
         "<BODY STYLE=\"margin: 1px 1px 1px 1px;\"><SCRIPT>";
}

constexpr std::string_view kGraph =
    "graph = new BAR_GRAPH(\"vBar\");graph.graphBGColor = \"white\";graph.graphPadding = 0;"
    "graph.barColor = \"#C0D0C0,#80D080\";graph.barBGColor = \"#D0F0D0\";"
    "graph.labelColor = \"white\";graph.labelBGColor = \"#333\";graph.legendColor = \"#00A000\";"
    "graph.legendBGColor = \"#D0F0D0\";graph.showValues = 1;";

constexpr std::string_view kEnd = "document.write(graph.create());</SCRIPT></BODY></HTML>";

void AddProperty(std::string& page, std::string_view name, std::string_view value) {
  page += "graph.";
  page += name;
  page += " = \"";
  page += value;
  page += "\";";
}

}  // namespace

std::string BuildReportPage(const ReportData& data, std::string_view title, std::string_view period,
                            std::string_view comma) {
  const auto titled = [title](std::string_view word) { return title.find(word) != title.npos; };
  std::string page = Head();
  page += kGraph;
  AddProperty(page, "labels", data.Labels);
  AddProperty(page, "values", data.Values);
  if (!data.Channels.empty()) AddProperty(page, "channels", data.Channels);
  AddProperty(page, "periodCharacter", period);
  AddProperty(page, "commaCharacter", comma);
  if (titled("CTR")) AddProperty(page, "valueFooter", "%");
  if (titled("eCPM") || titled("Earnings")) AddProperty(page, "valueHeader", "$");
  page += kEnd;
  return page;
}

void PutPageFiles(Files& files, const ApplicationFolder& folder) {
  if (folder.DataFolder() == folder.SharedFolder()) return;
  for (const std::string_view name : kPageFiles) {
    const std::optional<std::string> ours = files.Read(folder.SharedFile(name));
    const std::string beside = folder.DataFile(name);
    if (ours && files.Read(beside) != ours) WriteAtomically(files, beside, *ours);
  }
}

}  // namespace quillbox
