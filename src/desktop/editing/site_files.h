#pragma once
// How the edited page reaches files: local pictures by a scheme of our own, pictures on the net, and nothing else.

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

#include <string>
#include <string_view>

namespace mrd::desktop {

/// To be called before the application object is made.
void registerSiteScheme();

/// Address of the empty document in which pages are shown.
QUrl documentUrl();
bool isDocumentUrl(const QUrl& url);
/// Where the relative references of a site's pages start. `directory` is a path in the system's form.
QUrl siteUrl(std::string_view directory);

/// Lets pictures through and stops everything else. References to local files are led to the scheme.
class SiteRequests : public QWebEngineUrlRequestInterceptor {
public:
  void setDirectory(std::string_view directory) { directory_ = directory; }
  void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
  QUrl localUrl(const QUrl& file) const;

  std::string directory_;
};

/// Answers with the empty document and with local pictures, whatever the case of their names.
class SiteFiles : public QWebEngineUrlSchemeHandler {
public:
  void requestStarted(QWebEngineUrlRequestJob* job) override;
};

} // namespace mrd::desktop
