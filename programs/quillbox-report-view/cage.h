// What a report's page may reach: four files, under addresses of their own, and nothing else; and
// the page itself, which can neither leave nor ask for anything.
#pragma once

#include <QString>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>
#include <functional>
#include <memory>

namespace quillbox {

// Before the application object is made: an engine without network, without devices, and without
// anything that outlives the window; and the scheme of our addresses, which isn't that of files,
// so that the engine itself keeps the page from all of these.
void PrepareEngine();

// Where the page is found whose file FilesOfPage was given.
QUrl PageAddress();

// Answers for the addresses of our scheme: the page, and its three companions in the same folder.
class FilesOfPage : public QWebEngineUrlSchemeHandler {
 public:
  // Full path of the page's file.
  void SetPage(const QString& file) { page_ = file; }
  void requestStarted(QWebEngineUrlRequestJob* job) override;

 private:
  // Empty for an address that isn't one of ours.
  QString FileAt(const QUrl& address) const;

  QString page_;
};

// Stops every request that is not for our scheme or an empty page.
class Interceptor : public QWebEngineUrlRequestInterceptor {
 public:
  void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

// Keeps nothing, downloads nothing, hands nothing to other programs. All must outlive the profile's
// pages.
void Restrict(QWebEngineProfile& profile, FilesOfPage& files, Interceptor& interceptor);

class CagedPage : public QWebEnginePage {
 public:
  // `profile` must be a restricted one and outlive the page.
  explicit CagedPage(QWebEngineProfile& profile);

  // Goes there, whatever the page wants, and calls `loaded` when it is there, also when it failed.
  // A Navigate that comes meanwhile takes the place of the earlier one.
  void Navigate(const QUrl& address, std::function<void()> loaded);

  // Replaces the contents of the document that is shown, or that is on its way; one that doesn't
  // come in some seconds gives way to an empty one.
  void SetBody(const QString& html);

  // Calls `take` with the figures of the report that is shown: a line for each day, with tabs
  // between its cells. What is no graph gives an empty text, and a page that is never done no call.
  void AskFigures(std::function<void(const QString&)> take);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override {
    return {};
  }
  // Boxes of the page would hold up its window.
  void javaScriptAlert(const QUrl&, const QString&) override {}
  // A page that is to be left may ask whether it should, and the engine asks this.
  bool javaScriptConfirm(const QUrl&, const QString&) override { return loading_; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override {
    return false;
  }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                const QString&) override {}

 private:
  void Loaded();
  void PutBody();
  void GiveUpPage();
  void GiveWayToEmptyPage();

  bool navigating_ = false;  // the program asked for it, the page did not
  bool loading_ = false;
  std::function<void()> loaded_;
  QString body_;                                           // still to be put into the document
  int tries_ = 0;                                          // to put it there
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);  // the engine's callbacks may outlive us
};

}  // namespace quillbox
