// The seven pages of the Options dialog on this desktop.
#pragma once

#include <QIcon>
#include <QString>

class QWidget;

namespace quillbox {

// The picture by the name of its drawing in assets/pages.
QIcon PagePicture(const QString& name);

class AdSenseFrame;
class AutoUpdateFrame;
class GeneralFrame;
class ProxyFrame;
class SoundsFrame;
class TrayIconFrame;
class TrayTooltipFrame;

// The model must outlive the page, or the page be released from it.
QWidget* NewGeneralPage(GeneralFrame& model);
QWidget* NewAdSensePage(AdSenseFrame& model);
QWidget* NewAutoUpdatePage(AutoUpdateFrame& model);
QWidget* NewTrayIconPage(TrayIconFrame& model);
QWidget* NewTrayTooltipPage(TrayTooltipFrame& model);
QWidget* NewSoundsPage(SoundsFrame& model);
QWidget* NewInternetPage(ProxyFrame& model);

}  // namespace quillbox
