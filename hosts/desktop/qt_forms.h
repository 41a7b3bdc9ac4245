// The program's windows on this desktop.
#pragma once

#include <QPointer>
#include <QWidget>
#include <map>
#include <optional>

#include "platform/form_models.h"
#include "platform/forms.h"

namespace quillbox {

// A form that this version does not have yet is a box that says so.
class QtForms : public Forms {
 public:
  ~QtForms() override;

  // What the windows show; before this there is nothing to load. The models must outlive them.
  void Connect(const FormModels& models) { models_.emplace(models); }

  void Load(FormName form) override;
  void Unload(FormName form) override;
  void UnloadAll() override;

 private:
  QWidget* NewWindow(FormName form) const;

  std::optional<FormModels> models_;
  std::map<FormName, QPointer<QWidget>> windows_;  // each deletes itself when it is closed
};

}  // namespace quillbox
