#include "qt_windows/qt_forms.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>

#include "about/about_win.h"
#include "options/account.h"
#include "options/opts.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "qt_base/window_system.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/opts_form.h"
#include "qt_windows/own_widgets.h"
#include "qt_windows/reports_window.h"
#include "reports/reports_win.h"

namespace quillbox {
namespace {

constexpr QSize kAboutPicture{64, 64};
constexpr int kDarkLink = 110;         // on a scale of 255
constexpr double kProductSize = 1.35;  // of the ordinary letters

QLabel* Label(const char* name, const QString& text) {
  auto* const label = new QLabel(text);
  label->setObjectName(name);
  return label;
}

QLabel* PictureLabel(double ratio) {
  QIcon picture = OwnPicture();
  picture.addFile(":/quillbox-128.png");  // for screens of twice the dots
  auto* const label = Label("Picture", "");
  label->setPixmap(picture.pixmap(kAboutPicture, ratio));
  return label;
}

// Large beside the person's letters, also when these change.
class ProductLabel : public QLabel {
 public:
  explicit ProductLabel(const std::string& text) : QLabel(ToUnicode(text)) {
    setObjectName("Product");
    Enlarge();
  }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationFontChange) Enlarge();
  }

 private:
  void Enlarge() {
    QFont font = QApplication::font(this);
    font.setPointSizeF(font.pointSizeF() * kProductSize);
    font.setBold(true);
    setFont(font);
  }
};

// A theme's dark palette often leaves links as dark as they are on white.
QColor LinkColour() {
  const QPalette palette = QApplication::palette();
  const QColor link = palette.color(QPalette::Link);
  return IsDarkTheme() && qGray(link.rgb()) < kDarkLink ? palette.color(QPalette::WindowText)
                                                        : link;
}

class LinkLabel : public QLabel {
 public:
  LinkLabel(const char* name, const std::string& text, std::function<void()> clicked)
      : text_(ToUnicode(text)) {
    setObjectName(name);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setAccessibleName(text_);
    connect(this, &QLabel::linkActivated, this, std::move(clicked));
    ShowLink();
  }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) ShowLink();
  }

 private:
  void ShowLink() {
    setText(QString("<a href=\"#\" style=\"color: %1\">%2</a>")
                .arg(LinkColour().name(), text_.toHtmlEscaped()));
  }

  QString text_;
};

QWidget* OkButton(AboutWin& model) {
  auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok);
  QPushButton* const button = box->button(QDialogButtonBox::Ok);
  button->setObjectName("OK");
  button->setDefault(true);
  button->setFocus();
  QObject::connect(button, &QPushButton::clicked, box, [&model] { model.OK_Click(); });
  return box;
}

// The window, not shown yet. It deletes itself when it is closed; the model must outlive it.
QWidget* NewAboutForm(AboutWin& model) {
  QDialog* const form = NewFormDialog("AboutWin", model.Caption, nullptr);
  CloseByKeys(form);

  auto* const grid = new QGridLayout(form);
  grid->setSizeConstraint(QLayout::SetFixedSize);
  const int margin = form->fontMetrics().height();
  grid->setContentsMargins(margin, margin, margin, margin);
  grid->setHorizontalSpacing(margin);
  grid->addWidget(PictureLabel(form->devicePixelRatioF()), 0, 0, 4, 1, Qt::AlignTop);
  grid->addWidget(new ProductLabel(model.Product), 0, 1);
  grid->addWidget(Label("Credits", ToUnicode(model.Credits)), 1, 1);
  grid->addWidget(
      new LinkLabel("WebAddress", model.WebAddress, [&model] { model.WebAddress_Click(); }), 2, 1);
  grid->addWidget(new LinkLabel("Email", model.Email, [&model] { model.Email_Click(); }), 3, 1);
  grid->setRowMinimumHeight(4, margin / 2);
  grid->addWidget(OkButton(model), 5, 0, 1, 2);
  return form;
}

}  // namespace

QtForms::~QtForms() {
  for (auto& [form, window] : windows_) delete window.Widget;
}

bool QtForms::IsLoaded(FormName form) const {
  const auto window = windows_.find(form);
  return window != windows_.end() && window->second.Widget;
}

// A closed window lives on until the event loop comes round, and its model may not: it is forgotten
// at once.
void QtForms::TellClosed(FormName form) {
  const Window window = std::exchange(windows_[form], {});
  if (!window.Widget) return;
  ReleaseControls(window.Widget);
  window.Closed();
}

void QtForms::Load(AboutWin& form) {
  if (!IsLoaded(FormName::kAboutWin)) Show(FormName::kAboutWin, NewAboutForm(form), [] {});
}

void QtForms::Load(Opts& form) {
  if (IsLoaded(FormName::kOpts)) return;
  Show(FormName::kOpts, NewOptsForm(form), [&form] { form.Closed(); });
}

void QtForms::Load(Account& form) {
  if (IsLoaded(FormName::kAccount)) return;
  Show(FormName::kAccount, NewAccountForm(form, windows_[FormName::kOpts].Widget),
       [&form] { form.Closed(); });
}

void QtForms::Load(ReportsWin& form) {
  if (reports_ == nullptr || reports_->Loaded()) return;
  reports_->Load(form, [&form] { form.Closed(); });
  closeReports_ = [&form] { form.Closed(); };
}

// To the front, without staying there.
void QtForms::Show(FormName form, QWidget* window, std::function<void()> closed) {
  windows_[form] = {window, std::move(closed)};
  new CloseWatcher(window, [this, form] {
    if (!hiding_) TellClosed(form);
  });
  QObject::connect(window, &QObject::destroyed, [] { QTimer::singleShot(0, GiveBackSpareMemory); });
  window->show();
  window->raise();
  window->activateWindow();
}

void QtForms::Hide(FormName form) {
  if (!IsLoaded(form)) return;
  hiding_ = true;
  windows_[form].Widget->hide();
  hiding_ = false;
}

void QtForms::Unload(FormName form) {
  if (form == FormName::kReportsWin) UnloadReports();
  if (!IsLoaded(form)) return;
  const QPointer<QWidget> window = windows_[form].Widget;
  TellClosed(form);
  window->close();
}

void QtForms::UnloadReports() {
  if (reports_ == nullptr || !reports_->Loaded()) return;
  reports_->Unload();
  closeReports_();
}

void QtForms::UnloadAll() {
  for (const FormName form :
       {FormName::kAccount, FormName::kOpts, FormName::kReportsWin, FormName::kAboutWin}) {
    Unload(form);
  }
}

}  // namespace quillbox
