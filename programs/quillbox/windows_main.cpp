// Builds the Windows host and the program, joins them, and runs the message loop.
#include "build_values.h"
#include "shell/program.h"
#include "windows/windows_host.h"

int main() {
  const quillbox::ApplicationFolder folder = quillbox::FindApplicationFolder();
  quillbox::WindowsHost windows(folder);
  const quillbox::Host ports = windows.Ports();
  quillbox::Program program(ports, folder, quillbox::RegionOf(), quillbox::ThisBuild());
  windows.Connect(program.Events());
  if (!ports.Instance.AnotherInstanceRuns()) quillbox::ClearWorkingFiles(ports.Disk, folder);
  program.Main();
  return windows.Run();
}
