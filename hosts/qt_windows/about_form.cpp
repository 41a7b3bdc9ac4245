#include "qt_windows/about_form.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <string>

#include "about/about_win.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

constexpr QSize kPictureSize{64, 64};
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
  label->setPixmap(picture.pixmap(kPictureSize, ratio));
  return label;
}

QLabel* ProductLabel(const std::string& text) {
  auto* const label = Label("Product", ToUnicode(text));
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * kProductSize);
  font.setBold(true);
  label->setFont(font);
  return label;
}

QLabel* LinkLabel(const char* name, const std::string& text, std::function<void()> clicked) {
  auto* const label =
      Label(name, QString("<a href=\"#\">%1</a>").arg(ToUnicode(text).toHtmlEscaped()));
  label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  label->setAccessibleName(ToUnicode(text));
  QObject::connect(label, &QLabel::linkActivated, label, std::move(clicked));
  return label;
}

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
  auto* const form = new QDialog;
  form->setObjectName("AboutWin");
  form->setAttribute(Qt::WA_DeleteOnClose);
  form->setWindowTitle(ToUnicode(model.Caption));
  form->setWindowIcon(OwnPicture());

  auto* const grid = new QGridLayout(form);
  grid->setSizeConstraint(QLayout::SetFixedSize);
  const int margin = form->fontMetrics().height();
  grid->setContentsMargins(margin, margin, margin, margin);
  grid->setHorizontalSpacing(margin);
  grid->addWidget(PictureLabel(form->devicePixelRatioF()), 0, 0, 4, 1, Qt::AlignTop);
  grid->addWidget(ProductLabel(model.Product), 0, 1);
  grid->addWidget(Label("Credits", ToUnicode(model.Credits)), 1, 1);
  grid->addWidget(LinkLabel("WebAddress", model.WebAddress, [&model] { model.WebAddress_Click(); }),
                  2, 1);
  grid->addWidget(LinkLabel("Email", model.Email, [&model] { model.Email_Click(); }), 3, 1);
  grid->setRowMinimumHeight(4, margin / 2);
  grid->addWidget(OkButton(model), 5, 0, 1, 2);
  return form;
}

}  // namespace quillbox
