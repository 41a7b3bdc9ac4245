// What the page may reach: four files, under addresses of their own, and nothing else.
#pragma once

#include <QString>
#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

class QWebEngineProfile;

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

}  // namespace quillbox
