// The kinds of steps, each read from its members into what it does.
#include "quillbox-replay/script/script_step.h"

#include <utility>
#include <vector>

#include "quillbox-replay/script/script_members.h"
#include "quillbox-replay/script/script_person.h"
#include "quillbox-replay/script/script_trace.h"
#include "region/regional_settings.h"
#include "simulated/simulated_forms.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

using Reader = ScriptAction (*)(ScriptMembers&);

ScriptAction ReadHost(ScriptMembers& members) {
  members.Number("seed", 0);
  const auto time = members.MaybeTime("time");
  const auto region = BuiltInRegion(members.MaybeText("region").value_or("en-US"));
  if (!region) throw ScriptError{"\"region\" is not one of the built-in regions"};
  return [time, region](SimulatedProgram& program) {
    if (time) program.Host.Time.SetLocalTime(*time);
    program.Region = *region;
  };
}

ScriptAction ReadSettings(ScriptMembers& members) {
  return [settings = members.Settings("values")](SimulatedProgram& program) {
    for (const auto& setting : settings) {
      program.Host.Store.Put(setting.Section, setting.Key, setting.Value);
    }
  };
}

ScriptAction ReadAccount(ScriptMembers& members) {
  return [name = members.Text("name"), username = members.Text("username"),
          password = members.Text("password")](SimulatedProgram& program) {
    program.AddAccount(name, username, password);
  };
}

ScriptAction ReadEnvironment(ScriptMembers& members) {
  return [name = members.Text("name"), value = members.Text("value")](SimulatedProgram& program) {
    program.Host.Variables.Set(name, value);
  };
}

ScriptAction ReadStore(ScriptMembers& members) {
  const auto keeps =
      members.OneOf<StoreKeeps>("keeps", {{"all", StoreKeeps::kAll},
                                          {"nothing", StoreKeeps::kNothing},
                                          {"whileItRuns", StoreKeeps::kWhileItRuns}});
  return [keeps](SimulatedProgram& program) { program.Host.Store.SetKeeps(keeps); };
}

ScriptAction ReadDisk(ScriptMembers& members) {
  const auto state = members.OneOf<DiskState>("state", {{"works", DiskState::kWorks},
                                                        {"full", DiskState::kFull},
                                                        {"readOnly", DiskState::kReadOnly}});
  return [state](SimulatedProgram& program) { program.Host.Files.SetDisk(state); };
}

ScriptAction ReadFile(ScriptMembers& members) {
  const std::string name = members.Text("name");
  const std::string path = name.starts_with('/') ? name : SimulatedProgram::PathOf(name);
  const auto text = members.MaybeText("text");
  const bool gone = members.Flag("gone", false);
  const bool readable = members.Flag("readable", true);
  const bool picture = members.Flag("picture", true);
  return [path, text, gone, readable, picture](SimulatedProgram& program) {
    if (gone) program.Host.Files.Take(path);
    if (text) program.Host.Files.Put(path, *text);
    program.Host.Files.SetReadable(path, readable);
    if (!picture) program.Host.Tray.RefusePicture(path);
  };
}

ScriptAction ReadNetwork(ScriptMembers& members) {
  return [online = members.Flag("online", true)](SimulatedProgram& program) {
    program.Host.Network.SetOnline(online);
  };
}

ScriptAction ReadInstance(ScriptMembers& members) {
  return [runs = members.Flag("anotherRuns", true)](SimulatedProgram& program) {
    program.Host.Instance.SetAnotherRuns(runs);
  };
}

ScriptAction ReadAgent(ScriptMembers& members) {
  AgentBehaviour agent;
  agent.DataFile = members.MaybeText("dataFile").value_or("");
  agent.Username = members.MaybeText("username").value_or("");
  agent.Starts = members.Flag("starts", true);
  agent.Data = members.MaybeText("data");
  agent.DataAfter = members.MaybeDuration("dataAfter").value_or(agent.DataAfter);
  agent.Log = members.MaybeText("log");
  agent.LogAfter = members.MaybeDuration("logAfter").value_or(agent.LogAfter);
  agent.EmptyLogAfter = members.MaybeDuration("emptyLogAfter");
  agent.EndAfter = members.MaybeDuration("endAfter");
  agent.Jitter = members.MaybeDuration("jitter").value_or(agent.Jitter);
  const bool once = members.Flag("once", false);
  return [agent, once](SimulatedProgram& program) {
    if (once) {
      program.Host.Agents.Once(agent);
    } else {
      program.Host.Agents.Always(agent);
    }
  };
}

ScriptAction ReadAnswer(ScriptMembers& members) {
  BoxReply reply;
  reply.Part = members.MaybeText("to").value_or("");
  reply.Answer = members.OneOf<BoxAnswer>(
      "with", {{"OK", BoxAnswer::kOk}, {"Yes", BoxAnswer::kYes}, {"No", BoxAnswer::kNo}});
  reply.OpenFor = members.MaybeDuration("after").value_or(reply.OpenFor);
  return [reply](SimulatedProgram& program) { program.Host.Boxes.Add(reply); };
}

// A start while the program runs already only wakes it.
ScriptAction ReadStart(ScriptMembers&) {
  return [](SimulatedProgram& program) {
    if (program.Host.Runs()) {
      program.Host.LaunchAgain();
    } else {
      program.Start();
    }
  };
}

ScriptAction ReadRun(ScriptMembers& members) {
  return [duration = members.Duration("for")](SimulatedProgram& program) {
    program.Host.RunFor(duration);
  };
}

ScriptAction ReadMenu(ScriptMembers& members) {
  return [item = members.Text("item")](SimulatedProgram& program) { program.Host.Choose(item); };
}

ScriptAction ReadTray(ScriptMembers& members) {
  return members.OneOf<ScriptAction>(
      "it", {{"appears", [](SimulatedProgram& program) { program.Host.TrayAppears(); }},
             {"restarts", [](SimulatedProgram& program) { program.Host.TrayRestarts(); }},
             {"goes", [](SimulatedProgram& program) { program.Host.Tray.SetPresent(false); }},
             {"losesIcon", [](SimulatedProgram& program) { program.Host.Tray.LoseIcon(); }}});
}

ScriptAction ReadKill(ScriptMembers&) {
  return [](SimulatedProgram& program) { program.Host.Kill(); };
}

ScriptAction ReadShow(ScriptMembers& members) {
  if (members.Text("what") == "form") {
    return [form = ReadForm(members)](SimulatedProgram& program) { ShowForm(program, form); };
  }
  return members.OneOf<ScriptAction>(
      "what", {{"settings", ShowSettings}, {"files", ShowFiles}, {"menu", ShowMenu}});
}

constexpr std::pair<const char*, Reader> kKinds[] = {
    {"host", ReadHost},         {"settings", ReadSettings},
    {"account", ReadAccount},   {"environment", ReadEnvironment},
    {"store", ReadStore},       {"disk", ReadDisk},
    {"file", ReadFile},         {"network", ReadNetwork},
    {"instance", ReadInstance}, {"agent", ReadAgent},
    {"answer", ReadAnswer},     {"start", ReadStart},
    {"run", ReadRun},           {"menu", ReadMenu},
    {"tray", ReadTray},         {"kill", ReadKill},
    {"show", ReadShow},         {"hover", ReadHover},
    {"leave", ReadLeave},       {"left", ReadLeft},
    {"double", ReadDouble},     {"right", ReadRight},
    {"set", ReadSet},           {"select", ReadSelect},
    {"press", ReadPress},       {"closeBox", ReadCloseBox},
    {"choose", ReadChoose},     {"grant", ReadGrant}};

Reader FindKind(const std::string& name) {
  for (const auto& [known, reader] : kKinds) {
    if (name == known) return reader;
  }
  throw ScriptError{"unknown step " + QuotedInError(ToUtf8(name))};
}

// Some editors begin a file with the mark of UTF-8.
std::string_view WithoutMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return text;
}

}  // namespace

ScriptStep ReadScriptStep(const std::string& text, int line) {
  const JsonLine json = ReadJsonLine(WithoutMark(text));
  if (!json.NotJson.empty()) throw ScriptError{"not a JSON object"};
  ScriptMembers members(json.Value);
  ScriptStep read;
  read.Line = line;
  read.Do = members.Text("do");
  read.In = members.MaybeDuration("in");
  read.Act = FindKind(read.Do)(members);
  if (read.Do == "host") read.Seed = members.Number("seed", 0);
  members.RefuseOthers();
  if (!json.Fault.empty()) throw ScriptError{json.Fault};
  return read;
}

}  // namespace quillbox
