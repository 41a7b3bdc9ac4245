// Joins the controls of windows with the controls of a form.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/controls.h"
#include "windows_base/picture.h"

namespace quillbox {

// Notes the fixed name of a window or control, so that tests and people's tools find it: the
// window's property "QuillboxName" is a global atom of that text.
void SetFixedName(HWND window, std::string_view name);
bool HasFixedName(HWND window, std::string_view name);

// The number that the control of this fixed name has in dialogs.rc; 0 for one that isn't there.
int NumberOf(std::string_view name);

using FormControl = std::variant<CheckBox*, TextField*, ListField*, EditableList*, Button*,
                                 PictureField*, NoteField*>;

// From its binding on a window shows what the form's control holds, and what the person does
// reaches it. That lasts until Release or the end of this object; until then the form must live,
// and nobody else may watch its controls.
class DialogFields {
 public:
  DialogFields() = default;
  ~DialogFields() { Release(); }
  DialogFields(const DialogFields&) = delete;
  DialogFields& operator=(const DialogFields&) = delete;

  // Binds the controls to those of `page` with the numbers of their names. These get the fixed
  // names, and the captions where a control shows its own or has a label.
  void Bind(HWND page, std::initializer_list<FormControl> controls);

  // Binds a window of another kind. `show` brings the control's state into it, `told` is given the
  // codes of its commands.
  void Bind(HWND window, Control& control, std::function<void()> show,
            std::function<void(UINT code)> told);

  // Hands a command of `window` on. The fields may be gone afterwards.
  void Tell(HWND window, UINT code);

  // Parts all controls from the form.
  void Release();

 private:
  struct Bound {
    HWND Window;
    Control* Watched;
    std::function<void(UINT)> Told;
  };

  void BindKind(HWND window, CheckBox& control);
  void BindKind(HWND window, TextField& control);
  void BindKind(HWND window, ListField& control);
  void BindKind(HWND window, EditableList& control);
  void BindKind(HWND window, Button& control);
  void BindKind(HWND window, PictureField& control);
  void BindKind(HWND window, NoteField& control);

  std::vector<Bound> bound_;
  std::map<HWND, OwnedIcon> icons_;
};

}  // namespace quillbox
