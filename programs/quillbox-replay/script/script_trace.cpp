#include "quillbox-replay/script/script_trace.h"

#include <ostream>
#include <sstream>
#include <string>

#include "quillbox-replay/formats/iso_time.h"
#include "quillbox-replay/formats/json.h"

namespace quillbox {
namespace {

std::string TimeText(std::chrono::local_time<std::chrono::milliseconds> time) {
  const auto second = std::chrono::floor<std::chrono::seconds>(time);
  const std::string fraction = std::to_string(1000 + (time - second).count());
  return DateAndTimeArgument(second) + "." + fraction.substr(1);
}

}  // namespace

void WriteTraceEntry(std::ostream& out, const TraceEntry& entry, const SimulatedTime& time) {
  std::string line;
  JsonWriter writer(line);
  const auto member = [&writer](std::string_view name, std::string_view text) {
    writer.Name(name);
    writer.Text(text);
  };
  writer.BeginObject();
  member("at", TimeText(time.LocalTimeAt(entry.At)));
  member("what", entry.What);
  for (const auto& [name, value] : entry.Parts) member(name, value);
  if (entry.Parts.empty() && !entry.Text.empty()) member("text", entry.Text);
  writer.EndObject();
  out << line << '\n';
}

namespace {

void ShowItems(SimulatedTrace& trace, const Menu& menu, const std::string& above) {
  for (const MenuItem& item : menu) {
    if (item.Separator) continue;
    const std::string path = above + item.Caption;
    trace.Add("item", item.Enabled ? path : path + ", disabled",
              {{"path", path}, {"enabled", std::string(BooleanText(item.Enabled))}});
    ShowItems(trace, item.Items, path + " > ");
  }
}

// A settings file holds the secrets of the per-user store, too.
std::string ShownContent(const std::string& path, const std::string& content) {
  if (!path.ends_with(".ini")) return content;
  std::string shown;
  std::istringstream lines(content);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t equals = line.find('=');
    const bool secret =
        equals != std::string::npos && ShownValue(line.substr(0, equals), line) != line;
    shown += secret ? line.substr(0, equals + 1) + "...\r" : line;
    shown += '\n';
  }
  return shown;
}

}  // namespace

void ShowSettings(SimulatedProgram& program) {
  for (const auto& entry : program.Host.Store.All()) {
    const std::string shown = ShownValue(entry.Key, entry.Value);
    program.Host.Effects.Add("setting", entry.Section + "/" + entry.Key + "=" + shown,
                             {{"section", entry.Section}, {"key", entry.Key}, {"value", shown}});
  }
}

void ShowFiles(SimulatedProgram& program) {
  for (const auto& [path, content] : program.Host.Files.All()) {
    program.Host.Effects.Add("file", path,
                             {{"path", path}, {"content", ShownContent(path, content)}});
  }
}

void ShowMenu(SimulatedProgram& program) {
  if (program.Host.Runs()) ShowItems(program.Host.Effects, program.State().TrayMenu, "");
}

void ShowForm(SimulatedProgram& program, const ScriptForm& form) {
  for (const Control* control : ControlsOf(program.Host.Windows, form.Form)) {
    const std::string value = ControlValue(*control);
    const std::string enabled(BooleanText(control->Enabled()));
    program.Host.Effects.Add("control", control->Name() + "=" + value,
                             {{"form", form.Name},
                              {"control", control->Name()},
                              {"value", value},
                              {"enabled", enabled}});
  }
}

}  // namespace quillbox
