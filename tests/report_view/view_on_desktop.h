// The Reports window in its own process, on a private desktop, with the program's side in the test.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <string>
#include <vector>

#include "desktop/private_desktop.h"
#include "qt_windows/qt_forms.h"
#include "qt_windows/reports_window.h"
#include "reports/reports_win.h"
#include "simulated/context_on_state.h"

namespace quillbox {

class ViewOnDesktop : public ContextOnState {
 protected:
  ViewOnDesktop();
  ~ViewOnDesktop() override { forms_.UnloadAll(); }

  // Handles events until it is so; for `longest` milliseconds at most.
  static bool Until(const std::function<bool()>& isSo, int longest = 40000);

  // Loads the form and waits for its window.
  bool Opens();
  bool WindowIsShown();
  void Press(const QString& key);  // in the window

  void ClickPage();

  // The processes of the window that still run.
  static std::vector<int> Views();
  // Whether any of the engine's own does, which those start.
  static bool EngineRuns();

  // Writes a page with this body beside the script files, and shows it. Whether it was loaded.
  bool Shows(const std::string& html, int longest = 40000);
  std::string PageFile() const { return pageFolder_.filePath("Report.html").toStdString(); }

  // The colour left of the middle of the page, where nothing of a message stands: "#80d080".
  std::string ColourOfPage();

  const QTemporaryDir pageFolder_;
  PrivateDesktop desktop_;
  ReportsWindow window_{QUILLBOX_REPORT_VIEW, host_.Opener};
  QtForms forms_{&window_};
  ReportsWin form_{program_};
};

}  // namespace quillbox
