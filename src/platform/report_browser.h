// The web browser in the Reports window.
#pragma once

#include <string>

namespace quillbox {

// While that window isn't loaded nothing happens, and the browser counts as loaded.
class ReportBrowser {
 public:
  virtual ~ReportBrowser() = default;

  // Starts loading a page, and returns: "about:blank", or the full path of a file in the host's own
  // bytes.
  virtual void Navigate(const std::string& address) = 0;

  // kPageLoaded when the page of the last Navigate is there; less until then.
  virtual int ReadyState() = 0;

  // Replaces the contents of the document now in the browser. `html` is in the code page.
  virtual void SetBody(const std::string& html) = 0;
};

inline constexpr int kPageLoaded = 4;

}  // namespace quillbox
