// The program's windows on this desktop.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

#include "platform/forms.h"

namespace quillbox {

class ReportsWindow;

class QtForms : public Forms {
 public:
  // `reports` shows the Reports window and must outlive this; without it there is none.
  explicit QtForms(ReportsWindow* reports = nullptr) : reports_(reports) {}
  ~QtForms() override;

  void Load(AboutWin& form) override;
  void Load(Opts& form) override;
  void Load(Account& form) override;
  void Load(ReportsWin& form) override;
  void Hide(FormName form) override;
  void Unload(FormName form) override;
  void UnloadAll() override;

 private:
  struct Window {
    QPointer<QWidget> Widget;  // deletes itself when it is closed
    std::function<void()> Closed;
  };

  bool IsLoaded(FormName form) const;
  void Show(FormName form, QWidget* window, std::function<void()> closed);
  void TellClosed(FormName form);
  void UnloadReports();

  ReportsWindow* reports_;
  std::map<FormName, Window> windows_;
  std::function<void()> closeReports_;  // tells the model
  bool hiding_ = false;                 // a window goes out of sight, but stays loaded
};

}  // namespace quillbox
