// The controls of the forms, without widgets: buttons, tick boxes, lines of text, lists, pictures.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbox {

// What every control is.
// The program and the person change a control in the same way: through its functions. Those that
// stand for the person's doing run the control's event; every change is told to the watcher.
class Control {
 public:
  // `name` is the fixed name, "Check11"; it is unique within its form. `caption` (code page) is
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

class Button final : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  // Runs the event; nothing while the button is disabled.
  void Click() {
    if (Enabled() && Clicked) Clicked();
  }
};

// A tick box.
class CheckBox final : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  bool Ticked() const { return ticked_; }

  // Runs the event when it changes something.
  void SetTicked(bool ticked) {
    if (ticked == ticked_) return;
    ticked_ = ticked;
    Changed();
    if (Clicked) Clicked();
  }

 private:
  bool ticked_ = false;
};

// A line of text that the person writes.
class TextField final : public Control {
 public:
  enum class Echo { kPlain, kStars };

  // With kStars every character shows as "*".
  TextField(std::string name, std::string caption, Echo echo = Echo::kPlain)
      : Control(std::move(name), std::move(caption)), echo_(echo) {}

  std::function<void()> TextChanged;

  Echo Shows() const { return echo_; }

  // Code page.
  const std::string& Text() const { return text_; }

  // Runs the event when it changes something.
  void SetText(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    Changed();
    if (TextChanged) TextChanged();
  }

 private:
  Echo echo_;
  std::string text_;
};

// A drop-down list, of which at most one entry is selected. Texts are in the code page. Indexes
// must be those of entries.
class ListField : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  const std::vector<std::string>& Items() const { return items_; }
  std::optional<std::size_t> Selected() const { return selected_; }

  // The text of the selected entry; empty when none is.
  std::string Text() const;

  // None of these four runs the event. What was selected stays so; removing it leaves nothing
  // selected.
  void Add(std::string item);
  void Replace(std::size_t index, std::string item);
  void Remove(std::size_t index);
  void ShowSelected(std::size_t index);

  // Selects and runs the event, also when the entry was selected before.
  void Select(std::size_t index);

  // The same with the first entry that equals `text`; false, and no change, when none does.
  bool SelectText(std::string_view text);

 private:
  std::vector<std::string> items_;
  std::optional<std::size_t> selected_;
};

// A drop-down list whose shown text can be one that is no entry. What a person types into it has no
// effect: only choosing an entry runs the event. Entries and shown text are names of files, in the
// host's own bytes.
class EditableList final : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  const std::vector<std::string>& Items() const { return items_; }
  const std::string& Text() const { return text_; }

  void Add(std::string item) {
    items_.push_back(std::move(item));
    Changed();
  }

  // Shows `text` without running the event.
  void ShowText(std::string text) {
    text_ = std::move(text);
    Changed();
  }

  // The person chose the entry `index`, which must be one.
  void Select(std::size_t index) {
    ShowText(items_.at(index));
    if (Clicked) Clicked();
  }

 private:
  std::vector<std::string> items_;
  std::string text_;
};

// A sentence that the form says to the person.
class NoteField final : public Control {
 public:
  using Control::Control;

  // Code page; empty while there is nothing to say.
  const std::string& Text() const { return text_; }

  void Say(std::string text) {
    text_ = std::move(text);
    Changed();
  }

 private:
  std::string text_;
};

// A picture on a form.
class PictureField final : public Control {
 public:
  using Control::Control;

  // Full path of the picture's file, in the host's own bytes; empty for the program's own icon.
  const std::string& File() const { return file_; }

  void Show(std::string file) {
    file_ = std::move(file);
    Changed();
  }

 private:
  std::string file_;
};

}  // namespace quillbox
