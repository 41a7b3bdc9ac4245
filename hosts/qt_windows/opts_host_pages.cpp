// The pages "Sounds" and "Internet".
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "options/general_frames.h"
#include "options/sounds_frame.h"
#include "qt_windows/form_binding.h"
#include "qt_windows/opts_page.h"
#include "qt_windows/opts_pages.h"
#include "qt_windows/own_widgets.h"
#include "qt_windows/page_pictures.h"

namespace quillbox {
namespace {

QPushButton* NewPreviewButton(Button& control) {
  auto* const button = new QPushButton(PagePicture("preview"), "");
  Bind(button, control);
  button->setToolTip(button->accessibleName());
  return button;
}

}  // namespace

QWidget* NewSoundsPage(SoundsFrame& model) {
  auto* const page = new OptsPage("SoundsFrame");
  page->Heading("Sounds");
  auto* const events = new QComboBox;
  events->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  Bind(events, model.Combo10);
  page->Add(NewLabelFor(events, model.Combo10), events, {});

  auto* const sounds = new NameBox;
  Bind(sounds, model.Combo11);
  auto* const browse = new QPushButton;
  QPushButton* const preview = NewPreviewButton(model.Command9);
  Bind(browse, model.Command10);
  page->Add(NewLabelFor(sounds, model.Combo11), sounds, {preview, browse});
  return page;
}

QWidget* NewInternetPage(ProxyFrame& model) {
  auto* const page = new OptsPage("ProxyFrame");
  page->Heading("Connection");
  page->Add(model.Check12, "connection is found.");
  page->Note(
      "This option should only be enabled if you are not using an \"always-on\" Internet "
      "connection (e.g. dial-up).");
  page->Heading("Proxy Server");
  page->Note(
      "Enter your proxy server settings below if you connect to the Internet via a proxy "
      "server.");
  page->AddPair(model.Text3, model.Text4);
  page->AddPair(model.Text1, model.Text2);
  return page;
}

}  // namespace quillbox
