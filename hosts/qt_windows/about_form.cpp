#include "qt_windows/about_form.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <string>

#include "about/about_win.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/own_widgets.h"

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

}  // namespace

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

}  // namespace quillbox
