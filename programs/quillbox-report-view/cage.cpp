#include "cage.h"

#include <QFile>
#include <QFileInfo>
#include <QFontInfo>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNotification>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include "reports/report_page.h"

namespace quillbox {
namespace {

// No name is looked up and no address asked: whatever would go out goes to a proxy that isn't
// there. By itself the engine gives screen readers an empty page.
constexpr char kEngineFlags[] =
    " --host-resolver-rules=\"MAP * ~NOTFOUND\" --proxy-server=http://127.0.0.1:9"
    " --proxy-bypass-list=<-loopback> --dns-prefetch-disable --no-pings"
    " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
    " --disable-background-networking --disable-component-update --disable-domain-reliability"
    " --force-renderer-accessibility"
    " --disable-features=WebUSB,WebBluetooth,NetworkPrediction,DnsOverHttps";

constexpr char kScheme[] = "quillbox-report";
constexpr char kPage[] = "/Report.html";

// Of the page, which is in the code page, or of a file that it loads.
QByteArray TypeOf(const QString& path) {
  if (path == kPage) return "text/html;charset=windows-1252";
  return path.endsWith(".css") ? "text/css" : "text/javascript";
}

// A page that wants more than it shows: all of this is on by itself, or could be.
constexpr QWebEngineSettings::WebAttribute kOff[] = {
    QWebEngineSettings::LocalContentCanAccessFileUrls,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::JavascriptCanOpenWindows,
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::JavascriptCanPaste,
    QWebEngineSettings::LocalStorageEnabled,
    QWebEngineSettings::HyperlinkAuditingEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::FullScreenSupportEnabled,
    QWebEngineSettings::ScreenCaptureEnabled,
    QWebEngineSettings::WebGLEnabled,
    QWebEngineSettings::AutoLoadIconsForPage,
    QWebEngineSettings::DnsPrefetchEnabled,
    QWebEngineSettings::AllowRunningInsecureContent,
    QWebEngineSettings::AllowGeolocationOnInsecureOrigins,
    QWebEngineSettings::FocusOnNavigationEnabled};

}  // namespace

void PrepareEngine() {
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS", qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + kEngineFlags);
  qunsetenv("QTWEBENGINE_REMOTE_DEBUGGING");
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
  scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
  QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl PageAddress() {
  return QUrl(QString("%1://page%2").arg(kScheme, kPage));
}

QString FilesOfPage::FileAt(const QUrl& address) const {
  const QString path = address.path(QUrl::FullyDecoded);
  if (path == kPage) return page_;
  for (const std::string_view name : kPageFiles) {
    if (path == "/" + QString::fromLatin1(name)) return QFileInfo(page_).path() + path;
  }
  return {};
}

void FilesOfPage::requestStarted(QWebEngineUrlRequestJob* job) {
  auto* const file = new QFile(FileAt(job->requestUrl()), job);
  if (job->requestMethod() != "GET" || !file->open(QIODevice::ReadOnly)) {
    return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
  }
  job->reply(TypeOf(job->requestUrl().path()), file);
}

void Interceptor::interceptRequest(QWebEngineUrlRequestInfo& request) {
  const QUrl url = request.requestUrl();
  request.block(url.scheme() != kScheme && url != QUrl("about:blank"));
}

void Restrict(QWebEngineProfile& profile, FilesOfPage& files, Interceptor& interceptor) {
  profile.installUrlSchemeHandler(kScheme, &files);
  profile.setUrlRequestInterceptor(&interceptor);
  profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
  profile.setHttpCacheType(QWebEngineProfile::NoCache);
  profile.setSpellCheckEnabled(false);
  profile.setNotificationPresenter([](std::unique_ptr<QWebEngineNotification>) {});
  QObject::connect(&profile, &QWebEngineProfile::downloadRequested,
                   [](QWebEngineDownloadRequest* download) { download->cancel(); });
  for (const QWebEngineSettings::WebAttribute attribute : kOff) {
    profile.settings()->setAttribute(attribute, false);
  }
  // What a page doesn't say, and the font that its messages name where it is missing.
  profile.settings()->setFontFamily(QWebEngineSettings::StandardFont,
                                    QFontInfo(QFont("Verdana")).family());
  profile.settings()->setDefaultTextEncoding("windows-1252");
  profile.settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

}  // namespace quillbox
