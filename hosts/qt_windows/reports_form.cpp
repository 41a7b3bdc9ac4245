#include "qt_windows/reports_form.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "qt_windows/form_binding.h"
#include "qt_windows/form_dialog.h"
#include "qt_windows/own_widgets.h"

namespace quillbox {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kFontPoints = 8.25;
constexpr int kLeastGap = 105;      // in twips, between columns and rows
constexpr int kLeastLabelGap = 30;  // between a label and its list

constexpr QColor kPaper{250, 250, 251};
constexpr QColor kInk{0, 26, 53};

// Where the panel's children stand in it.
TwipRect InPanel(TwipRect rect) {
  rect.Left -= kShape2Place.Left;
  rect.Top -= kShape2Place.Top;
  return rect;
}

}  // namespace

int ToPixels(const QWidget& widget, int twips) {
  return qRound(static_cast<double>(twips) * widget.logicalDpiX() / kTwipsPerInch);
}

int ToTwips(const QWidget& widget, int pixels) {
  return qRound(static_cast<double>(pixels) * kTwipsPerInch / widget.logicalDpiX());
}

QRect ToPixels(const QWidget& widget, const TwipRect& rect) {
  return {ToPixels(widget, rect.Left), ToPixels(widget, rect.Top), ToPixels(widget, rect.Width),
          ToPixels(widget, rect.Height)};
}

// All its properties are ours: what a font leaves open would come from the theme.
QFont ReportsFont() {
  QFont font("Verdana");
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(kFontPoints);
  font.setResolveMask(QFont::AllPropertiesResolved);
  return font;
}

QPalette PaperPalette() {
  const QPalette persons = QApplication::palette();
  QPalette paper = IsDarkTheme() ? QPalette(QColor(239, 239, 239), kPaper) : persons;
  if (IsDarkTheme()) {
    paper.setColor(QPalette::Highlight, persons.color(QPalette::Highlight));
    paper.setColor(QPalette::HighlightedText, persons.color(QPalette::HighlightedText));
  }
  paper.setColor(QPalette::Window, kPaper);
  paper.setColor(QPalette::WindowText, kInk);
  return paper;
}

ChoicePanel::ChoicePanel(ReportsFields& fields, QWidget* parent) : QFrame(parent) {
  setObjectName("Shape2");
  setAutoFillBackground(true);
  AddChoice(new NameBox, fields.Combo1);
  for (ListField* const field : {&fields.Combo2, &fields.Combo3, &fields.Combo4}) {
    auto* const list = new QComboBox;
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);  // entries may come later
    AddChoice(list, *field);
  }
  command_ = new QPushButton(this);
  Bind(command_, fields.Command1);
  Dress();
  PlaceAll();
}

void ChoicePanel::AddChoice(QComboBox* list, ListField& field) {
  list->setParent(this);
  Bind(list, field);
  QLabel* const label = NewLabelFor(list, field);
  label->setParent(this);
  choices_.push_back({label, list});
}

// Each by itself, the lists that drop down too: under a style sheet, or a theme with fonts for
// kinds of widgets, they wouldn't inherit.
void ChoicePanel::Dress() {
  setPalette(PaperPalette());
  for (const Choice& choice : choices_) choice.List->view();  // makes it
  for (QWidget* const child : findChildren<QWidget*>()) {
    child->setFont(ReportsFont());
    child->setPalette(PaperPalette());
  }
}

// `first` and the choice after it, one below the other.
void ChoicePanel::PlaceInColumn(std::size_t first, int left, int width) {
  const int gap = ToPixels(*this, kLeastGap);
  int free = 0;  // from here down
  for (std::size_t i = first; i < first + 2; ++i) {
    const auto [label, list] = choices_[i];
    const QRect place = ToPixels(*this, InPanel(kReportsComboPlaces[i]));
    const QRect labelPlace = ToPixels(*this, InPanel(kReportsLabelPlaces[i]));
    label->setGeometry({{left, std::max(labelPlace.top(), free)}, label->sizeHint()});
    const int top =
        std::max(place.top(), label->geometry().bottom() + 1 + ToPixels(*this, kLeastLabelGap));
    list->setGeometry(left, top, width, std::max(place.height(), list->sizeHint().height()));
    free = list->geometry().bottom() + 1 + gap;
  }
}

// Gives its right end.
int ChoicePanel::PlaceColumn(std::size_t first, int left) {
  int width = ToPixels(*this, kReportsComboPlaces[first].Width);
  for (std::size_t i = first; i < first + 2; ++i) {
    width = std::max(
        {width, choices_[i].List->sizeHint().width(), choices_[i].Label->sizeHint().width()});
  }
  PlaceInColumn(first, left, width);
  return left + width;
}

void ChoicePanel::PlaceAll() {
  const int gap = ToPixels(*this, kLeastGap);
  const auto designed = [this](const TwipRect& rect) { return ToPixels(*this, InPanel(rect)); };
  const int firstEnd = PlaceColumn(0, designed(kReportsComboPlaces[0]).left());
  const int secondEnd =
      PlaceColumn(2, std::max(designed(kReportsComboPlaces[2]).left(), firstEnd + gap));
  QRect button = designed(kReportsCommand1Place);
  button.setLeft(std::max(button.left(), secondEnd + gap));
  const QSize wanted = command_->sizeHint();
  button.setWidth(std::max(button.width(), wanted.width()));
  button.setHeight(std::max(button.height(), wanted.height()));
  // Its foot stands at that of the list beside it.
  button.moveBottom(std::max(button.bottom(), choices_.back().List->geometry().bottom()));
  command_->setGeometry(button);
  setMinimumWidth(std::max(designed(kShape2Place).width(), button.right() + 1 + gap));
}

bool ChoicePanel::event(QEvent* event) {
  const bool done = QFrame::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange) Dress();
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::StyleChange) PlaceAll();
  return done;
}

ReportsForm::ReportsForm(ReportsFields& fields, QWidget* page)
    : page_(page), panel_(new ChoicePanel(fields, this)) {
  setObjectName("ReportsWin");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(kReportsCaption);
  page_->setParent(this);
  page_->setObjectName("IE");
  CloseByKeys(this);
  KeepRoom();
  resize(std::max(ToPixels(*this, kReportsClient.Width), minimumWidth()),
         ToPixels(*this, kReportsClient.Height));
}

// For what the panel needs, which is more than the window was designed for in some styles.
void ReportsForm::KeepRoom() {
  const auto client = [this](int whole, int frame) { return ToPixels(*this, whole - frame); };
  const int beside = ToPixels(*this, kReportsClient.Width - kShape2Place.Width);
  setMinimumSize(std::max(client(kReportsSmallest.Width, kReportsFrame.Width),
                          panel_->minimumWidth() + beside),
                 client(kReportsSmallest.Height, kReportsFrame.Height));
}

void ReportsForm::ShowBusy(bool busy) {
  if (busy) {
    setCursor(Qt::WaitCursor);
  } else {
    unsetCursor();
  }
}

void ReportsForm::Present() {
  if (const QScreen* const screen = QGuiApplication::primaryScreen()) {
    QRect place = rect();
    place.moveCenter(screen->availableGeometry().center());
    move(place.topLeft());
  }
  show();
  raise();
  activateWindow();
  if (auto* const first = findChild<QComboBox*>()) first->setFocus();
}

bool ReportsForm::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) KeepRoom();
  return QWidget::event(event);
}

void ReportsForm::resizeEvent(QResizeEvent*) {
  const TwipSize window{ToTwips(*this, width()) + kReportsFrame.Width,
                        ToTwips(*this, height()) + kReportsFrame.Height};
  const ReportsLayout layout = LayOutReports(window, ToTwips(*this, 1));
  panel_->setGeometry(ToPixels(*this, layout.Panel));
  page_->setGeometry(ToPixels(*this, layout.Browser));
}

}  // namespace quillbox
