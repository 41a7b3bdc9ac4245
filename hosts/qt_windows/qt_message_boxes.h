// Message boxes in the look of the person's desktop.
#pragma once

#include "platform/forms.h"

namespace quillbox {

class QtMessageBoxes : public MessageBoxes {
 public:
  BoxAnswer Show(const Message& message) override;
};

}  // namespace quillbox
