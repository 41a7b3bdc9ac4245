#include "quillbox-replay/script/script_person.h"

#include <algorithm>

#include "forms/controls.h"
#include "simulated/simulated_forms.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

// Why something can't be done; empty when it was done.
using Refusal = std::string;

constexpr char kOtherKind[] = "is another kind of control";

// Why the person can't reach the form.
Refusal OutOfReach(const SimulatedHost& host, FormName form) {
  const SimulatedForms& forms = host.Windows;
  if (!IsLoaded(forms, form)) return "is not open";
  // The Reports window is a process of its own.
  if (host.Boxes.Open() && form != FormName::kReportsWin) return "is behind a message box";
  const bool behind = form == FormName::kOpts && IsLoaded(forms, FormName::kAccount);
  return behind ? "is behind Account" : "";
}

void Tell(SimulatedProgram& program, const std::string& what, const Refusal& refusal) {
  if (!refusal.empty()) program.Host.Effects.Add("refused", what + " " + refusal);
}

using Use = std::function<Refusal(Control&)>;

void UseControl(SimulatedProgram& program, const ScriptForm& form, const std::string& name,
                const Use& use) {
  const Refusal outOfReach = OutOfReach(program.Host, form.Form);
  if (!outOfReach.empty()) return Tell(program, form.Name, outOfReach);
  for (Control* control : ControlsOf(program.Host.Windows, form.Form)) {
    if (control->Name() != name) continue;
    const Refusal refusal = control->Enabled() ? use(*control) : "is disabled";
    return Tell(program, form.Name + " " + name, refusal);
  }
  Tell(program, form.Name + " " + name, "is no control");
}

// The process may end in the middle.
ScriptAction OnControl(ScriptMembers& members, const char* nameMember, Use use) {
  return [form = ReadForm(members), name = members.Text(nameMember),
          use = std::move(use)](SimulatedProgram& program) {
    program.Host.Do([&] { UseControl(program, form, name, use); });
  };
}

Refusal Tick(Control& control, bool ticked) {
  auto* box = dynamic_cast<CheckBox*>(&control);
  if (box == nullptr) return kOtherKind;
  box->SetTicked(ticked);
  return {};
}

Refusal Write(Control& control, const std::string& text) {
  auto* field = dynamic_cast<TextField*>(&control);
  if (field == nullptr) return kOtherKind;
  field->SetText(text);
  return {};
}

template <typename List>
Refusal ChooseEntry(List& list, const std::string& item) {
  const auto found = std::find(list.Items().begin(), list.Items().end(), item);
  if (found == list.Items().end()) return "has no entry \"" + item + "\"";
  list.Select(static_cast<std::size_t>(found - list.Items().begin()));
  return {};
}

Refusal Choose(Control& control, const std::string& item) {
  if (auto* list = dynamic_cast<ListField*>(&control)) return ChooseEntry(*list, item);
  if (auto* list = dynamic_cast<EditableList*>(&control)) return ChooseEntry(*list, item);
  return kOtherKind;
}

Refusal Press(Control& control) {
  auto* button = dynamic_cast<Button*>(&control);
  if (button == nullptr) return kOtherKind;
  button->Click();
  return {};
}

}  // namespace

ScriptAction ReadSet(ScriptMembers& members) {
  if (members.IsFlag("to")) {
    const bool ticked = members.Flag("to", false);
    return OnControl(members, "field", [ticked](Control& box) { return Tick(box, ticked); });
  }
  return OnControl(members, "field",
                   [text = members.Text("to")](Control& field) { return Write(field, text); });
}

ScriptAction ReadSelect(ScriptMembers& members) {
  return OnControl(members, "field",
                   [item = members.Text("item")](Control& list) { return Choose(list, item); });
}

ScriptAction ReadPress(ScriptMembers& members) {
  return OnControl(members, "button", Press);
}

ScriptAction ReadCloseBox(ScriptMembers& members) {
  return [form = ReadForm(members)](SimulatedProgram& program) {
    const Refusal outOfReach = OutOfReach(program.Host, form.Form);
    if (!outOfReach.empty()) return Tell(program, form.Name, outOfReach);
    program.Host.Do([&] { program.Host.Windows.CloseBox(form.Form); });
  };
}

ScriptAction ReadChoose(ScriptMembers& members) {
  auto file = members.MaybeText("file");
  if (file && !file->starts_with('/')) file = SimulatedProgram::PathOf(*file);
  return [file](SimulatedProgram& program) { program.Host.Chooser.Add(file); };
}

ScriptAction ReadGrant(ScriptMembers& members) {
  SimulatedGrants::Reply reply;
  reply.Answer.Problem = members.MaybeText("problem").value_or("");
  if (reply.Answer.Problem.empty()) {
    reply.Answer.Name = members.Text("name");
    if (!IsGrantName(reply.Answer.Name)) throw ScriptError{"\"name\" is not a grant's name"};
  }
  reply.After = members.MaybeDuration("after").value_or(reply.After);
  return [reply](SimulatedProgram& program) { program.Host.Grants.Add(reply); };
}

namespace {

int Coordinate(ScriptMembers& members, const char* name, unsigned whenMissing) {
  constexpr std::uint64_t kMost = 32767;
  const std::uint64_t value = members.Number(name, whenMissing);
  if (value > kMost) throw ScriptError{"\"" + std::string(name) + "\" is off any screen"};
  return static_cast<int>(value);
}

}  // namespace

// In the simulated taskbar, unless told otherwise.
ScriptAction ReadHover(ScriptMembers& members) {
  const PixelPoint cursor{Coordinate(members, "x", 1000), Coordinate(members, "y", 750)};
  return [cursor](SimulatedProgram& program) { program.Host.Hover(cursor); };
}

// In the middle of the simulated screen, unless told otherwise.
ScriptAction ReadLeave(ScriptMembers& members) {
  const PixelPoint cursor{Coordinate(members, "x", 512), Coordinate(members, "y", 384)};
  return [cursor](SimulatedProgram& program) { program.Host.Mouse.MoveTo(cursor); };
}

ScriptAction ReadLeft(ScriptMembers&) {
  return [](SimulatedProgram& program) { program.Host.LeftDown(); };
}

ScriptAction ReadDouble(ScriptMembers&) {
  return [](SimulatedProgram& program) { program.Host.DoubleClick(); };
}

// Without a program there is no menu that the visit could go to.
ScriptAction ReadRight(ScriptMembers& members) {
  MenuVisit visit;
  visit.Item = members.MaybeText("item").value_or("");
  visit.OpenFor = members.MaybeDuration("after").value_or(visit.OpenFor);
  return [visit](SimulatedProgram& program) {
    if (!program.Host.Runs()) return;
    program.Host.TrayMenus.Add(visit);
    program.Host.RightDown();
  };
}

}  // namespace quillbox
