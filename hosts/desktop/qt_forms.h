// The program's windows on this desktop.
#pragma once

#include <QPointer>

#include "platform/forms.h"

class QMessageBox;

namespace quillbox {

// This version has none of the windows yet; who asks for one is told so. The tooltip window, which
// nobody asks for, stays away.
class QtForms : public Forms {
 public:
  ~QtForms() override;
  void Load(FormName form) override;
  void UnloadAll() override;

 private:
  QPointer<QMessageBox> notice_;  // deletes itself when it is closed
};

}  // namespace quillbox
