// Steps of a script in which the person uses the mouse at the tray icon.
#include "simulated/script_mouse.h"

namespace quillbox {
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
