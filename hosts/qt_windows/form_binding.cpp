#include "qt_windows/form_binding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <functional>
#include <optional>
#include <utility>

#include "forms/controls.h"
#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr char kTieName[] = "ControlTie";
constexpr QSize kPictureSize{32, 32};

QString WithoutMnemonic(QString caption) {
  return caption.remove('&');
}

// Belongs to the widget. Deleting it ends the watch, and every connection that is made to it.
class Tie : public QObject {
 public:
  Tie(QWidget* widget, Control& control, std::function<void()> show)
      : QObject(widget), control_(control) {
    setObjectName(kTieName);
    widget->setObjectName(QString::fromStdString(control.Name()));
    if (widget->accessibleName().isEmpty()) {
      widget->setAccessibleName(WithoutMnemonic(ToUnicode(control.Caption())));
    }
    control.Watch([widget, &control, show = std::move(show)] {
      const QSignalBlocker ownChange(widget);  // the control knows already
      widget->setEnabled(control.Enabled());
      show();
    });
  }
  ~Tie() override { control_.Watch({}); }

 private:
  Control& control_;
};

// The first showing.
template <class Show>
Tie* NewTie(QWidget* widget, Control& control, const Show& show) {
  auto* const tie = new Tie(widget, control, show);
  const QSignalBlocker ownChange(widget);
  widget->setEnabled(control.Enabled());
  show();
  return tie;
}

// An entry as it stands in the list, and whole.
struct Entry {
  QString Shown, Whole;
};

template <class Items, class ToEntry>
void ShowItems(QComboBox* box, const Items& items, ToEntry toEntry) {
  QStringList wanted, there;
  for (const auto& item : items) wanted += toEntry(item).Whole;
  for (int i = 0; i < box->count(); ++i) there += box->itemData(i).toString();
  if (wanted == there) return;
  box->clear();
  for (const auto& item : items) {
    const Entry entry = toEntry(item);
    box->addItem(entry.Shown, entry.Whole);
    if (entry.Shown != entry.Whole) {
      box->setItemData(box->count() - 1, entry.Whole, Qt::ToolTipRole);
    }
  }
}

Entry ToEntry(const std::string& item) {
  return {ToUnicode(Elided(item)), ToUnicode(item)};
}

int IndexOf(const std::optional<std::size_t>& selected) {
  return selected ? static_cast<int>(*selected) : -1;
}

QString ToFileName(const std::string& name) {
  return QFile::decodeName(name.c_str());
}

Entry ToFileEntry(const std::string& name) {
  return {ToFileName(name), ToFileName(name)};
}

}  // namespace

void Bind(QCheckBox* box, CheckBox& control, const char* secondLine) {
  const QString caption = ToUnicode(control.Caption());
  box->setText(caption);
  box->setAccessibleName(WithoutMnemonic(caption + ' ' + secondLine).trimmed());
  const auto* const tie =
      NewTie(box, control, [box, &control] { box->setChecked(control.Ticked()); });
  QObject::connect(box, &QCheckBox::toggled, tie,
                   [&control](bool ticked) { control.SetTicked(ticked); });
}

void Bind(QComboBox* box, ListField& control) {
  const auto* const tie = NewTie(box, control, [box, &control] {
    ShowItems(box, control.Items(), ToEntry);
    box->setCurrentIndex(IndexOf(control.Selected()));
    box->setToolTip(box->currentData(Qt::ToolTipRole).toString());
  });
  QObject::connect(box, &QComboBox::activated, tie,
                   [&control](int index) { control.Select(static_cast<std::size_t>(index)); });
}

void Bind(QComboBox* box, EditableList& control) {
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  const auto show = [box, &control] {
    ShowItems(box, control.Items(), ToFileEntry);
    const QString text = ToFileName(control.Text());
    box->setCurrentIndex(box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    box->setEditText(text);
  };
  const auto* const tie = NewTie(box, control, show);
  QObject::connect(box, &QComboBox::activated, tie,
                   [&control](int index) { control.Select(static_cast<std::size_t>(index)); });
  // By itself the box would take the typed name of an entry for a choice. Typing has no effect, and
  // what stands there afterwards is what counts.
  QLineEdit* const line = box->lineEdit();
  QObject::disconnect(line, &QLineEdit::editingFinished, box, nullptr);
  QObject::connect(line, &QLineEdit::editingFinished, tie, show);
}

void Bind(QLineEdit* line, TextField& control) {
  if (control.Shows() == TextField::Echo::kStars) {
    line->setEchoMode(QLineEdit::Password);
    line->setStyleSheet("lineedit-password-character: 42");  // "*"
  }
  const auto* const tie = NewTie(line, control, [line, &control] {
    // What the code page lacks stays in the line, so that the person sees what to change.
    if (ToCodePageWithGaps(line->text()) == control.Text()) return;
    line->setText(ToUnicode(control.Text()));
  });
  QObject::connect(line, &QLineEdit::textChanged, tie,
                   [&control](const QString& text) { control.SetText(ToCodePageWithGaps(text)); });
}

void Bind(QPushButton* button, Button& control) {
  if (button->icon().isNull()) button->setText(ToUnicode(control.Caption()));
  const auto* const tie = NewTie(button, control, [] {});
  QObject::connect(button, &QPushButton::clicked, tie, [&control] { control.Click(); });
}

void Bind(QLabel* label, NoteField& control, QWidget* row) {
  NewTie(label, control, [label, row, &control] {
    label->setText(ToUnicode(control.Text()));
    row->setVisible(!control.Text().empty());
  });
}

void Bind(QLabel* label, PictureField& control) {
  label->setFixedSize(kPictureSize);
  NewTie(label, control, [label, &control] {
    const QIcon picture = control.File().empty() ? OwnPicture() : PictureFromFile(control.File());
    if (picture.isNull()) return;
    label->setPixmap(picture.pixmap(kPictureSize, label->devicePixelRatioF()));
  });
}

void Bind(QTabWidget* tabs, ListField& control) {
  const auto* const tie = NewTie(
      tabs, control, [tabs, &control] { tabs->setCurrentIndex(IndexOf(control.Selected())); });
  QObject::connect(tabs, &QTabWidget::currentChanged, tie,
                   [&control](int index) { control.Select(static_cast<std::size_t>(index)); });
}

QLabel* NewLabelFor(QWidget* field, const Control& control) {
  auto* const label = new QLabel(ToUnicode(control.Caption()));
  label->setBuddy(field);
  return label;
}

void ReleaseControls(QWidget* window) {
  qDeleteAll(window->findChildren<QObject*>(kTieName));
}

}  // namespace quillbox
