#include "desktop/editing/site_files.h"

#include "base/text.h"
#include "platform/files/path.h"

#include <QBuffer>
#include <QFile>
#include <QMimeDatabase>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <memory>

namespace mrd::desktop {
namespace {

constexpr auto kScheme = "mirandel";
constexpr auto kHost = "site";
constexpr auto kDocumentQuery = "document";

// No document type: pages are generated without one and must be laid out here as they will be there. Scripts are switched off for
// the whole view; the policy is the second wall, and keeps frames and plug-ins away.
constexpr auto kEmptyDocument =
    "<html><head><meta charset=\"utf-8\"><meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
    "img-src * data: blob: file: mirandel:; style-src 'unsafe-inline'; form-action 'none'\"></head><body></body></html>";

/// A URL of the scheme for a path in the system's form that begins at the root.
QUrl urlOf(std::string_view path)
{
  QUrl url;
  url.setScheme(kScheme);
  url.setHost(kHost);
  const std::string slashes = base::replaceAll(path, "\\", "/");
  const QString text = QString::fromStdString(slashes);
  url.setPath(text.startsWith('/') ? text : '/' + text, QUrl::DecodedMode);
  return url;
}

std::string pathOf(const QUrl& url) { return files::pathFromReference("file://" + url.path(QUrl::FullyEncoded).toStdString()); }

bool beginsAtRoot(std::string_view path) { return path.starts_with('\\') || (path.size() > 1 && path[1] == ':'); }

void answerWithPicture(QWebEngineUrlRequestJob& job)
{
  const auto native = files::nativePath(pathOf(job.requestUrl()));
  auto file = std::make_unique<QFile>(QString::fromStdString(native.string()));
  const QString type = QMimeDatabase().mimeTypeForFile(file->fileName()).name();
  if (!type.startsWith("image/") || !file->open(QIODevice::ReadOnly)) {
    job.fail(QWebEngineUrlRequestJob::UrlNotFound);
    return;
  }
  file->setParent(&job);
  job.reply(type.toLatin1(), file.release());
}

void answerWithDocument(QWebEngineUrlRequestJob& job)
{
  auto buffer = std::make_unique<QBuffer>(&job);
  buffer->setData(kEmptyDocument);
  job.reply("text/html", buffer.release());
}

} // namespace

void registerSiteScheme()
{
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
  // Without it the page could not even ask for a local file, and be led here.
  scheme.setFlags(QWebEngineUrlScheme::LocalAccessAllowed);
  QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl siteUrl(std::string_view directory)
{
  QUrl url = urlOf(directory);
  if (!url.path().endsWith('/'))
    url.setPath(url.path() + '/');
  return url;
}

QUrl documentUrl()
{
  QUrl url = siteUrl("");
  url.setQuery(kDocumentQuery);
  return url;
}

bool isDocumentUrl(const QUrl& url) { return url.scheme() == kScheme && url.query() == kDocumentQuery; }

void SiteRequests::interceptRequest(QWebEngineUrlRequestInfo& info)
{
  const QUrl url = info.requestUrl();
  const bool isPicture = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage;
  const bool isDocument = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame && isDocumentUrl(url);
  if (isPicture && url.scheme() == "file")
    info.redirect(localUrl(url));
  else if (!isDocument && !(isPicture && (url.scheme() == kScheme || url.scheme().startsWith("http"))))
    info.block(true);
}

/// Pages name a directory of the site as `file://pix/x.jpg`, which a browser takes for a machine.
QUrl SiteRequests::localUrl(const QUrl& file) const
{
  const std::string path = files::pathFromReference(file.toEncoded().toStdString());
  return urlOf(beginsAtRoot(path) ? path : directory_ + "\\" + path);
}

void SiteFiles::requestStarted(QWebEngineUrlRequestJob* job)
{
  if (isDocumentUrl(job->requestUrl()))
    answerWithDocument(*job);
  else
    answerWithPicture(*job);
}

} // namespace mrd::desktop
