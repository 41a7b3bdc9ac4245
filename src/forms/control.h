// What a control of a form is, without a widget.
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace quillbox {

// The program and the person change a control in the same way: through its functions. Those that
// stand for the person's doing run the control's event; every change is told to the watcher.
class Control {
 public:
  // `name` is the designed name, "Check11"; it is unique within its form. `caption` (code page) is
  // what stands on the control or on the label that belongs to it; "&" precedes its mnemonic.
  Control(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) {
    enabled_ = enabled;
    Changed();
  }

  // Called after each change of what the control shows, whoever made it, and before its event runs.
  // There is one watcher; an empty function takes it away.
  void Watch(std::function<void()> watcher) { watcher_ = std::move(watcher); }

 protected:
  void Changed() {
    if (watcher_) watcher_();
  }

 private:
  std::string name_;
  std::string caption_;
  bool enabled_ = true;
  std::function<void()> watcher_;
};

}  // namespace quillbox
