#include "reports/reports_win.h"

#include "platform/forms.h"
#include "platform/host.h"

namespace quillbox {

ReportsWin::ReportsWin(const ProgramContext& program) : program_(program) {}

void ReportsWin::Load() {
  loaded_ = true;
  program_.Host.Windows.Load(*this);
}

void ReportsWin::Closed() {
  loaded_ = false;
}

}  // namespace quillbox
