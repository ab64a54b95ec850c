// What a page may reach from within the surface: pictures, and nothing else.

#include "desktop/editing/shown_surface.h"
#include "support/temporary.h"

#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QWebEngineScript>

#include <gmock/gmock.h>

namespace mrd::desktop {
namespace {

using support::TemporaryDirectory;

/// A server that answers nothing and counts who comes.
struct CountingServer {
  CountingServer()
  {
    server.listen(QHostAddress::LocalHost);
    QObject::connect(&server, &QTcpServer::newConnection, [this] {
      while (QTcpSocket* const socket = server.nextPendingConnection()) {
        ++connections;
        QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] { requests += socket->readAll().toStdString(); });
      }
    });
  }
  std::string url(std::string_view path) const
  {
    return "http://127.0.0.1:" + std::to_string(server.serverPort()) + std::string(path);
  }

  QTcpServer server;
  int connections = 0;
  std::string requests;
};

void writePicture(const TemporaryDirectory& directory, const std::string& name)
{
  directory.write(name, "");
  QImage image(12, 8, QImage::Format_RGB32);
  image.fill(Qt::blue);
  ASSERT_TRUE(image.save(QString::fromStdString((directory.native() / name).string()), "PNG"));
}

/// Widths of all pictures of the page, once they are loaded.
std::string pictureWidths(const ShownSurface& surface)
{
  comesTrue([&] { return surface.inDocument("[...document.images].every(i => i.complete)").toBool(); });
  return surface.textInDocument("[...document.images].map(i => i.naturalWidth).join(' ')");
}

} // namespace

TEST(ScriptsOfThePage, never_run)
{
  ShownSurface surface;
  const std::string title = surface.textInDocument("document.title");

  surface.load("<script>document.title = 'a'</script>"
               "<img src=\"data:image/png;base64,x\" onerror=\"document.title = 'b'\">"
               "<img src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\" onload=\"document.title = 'c'\">"
               "<svg onload=\"document.title = 'd'\"></svg><body onload=\"document.title = 'e'\">"
               "<iframe srcdoc=\"<script>parent.document.title = 'f'</script>\"></iframe>"
               "<iframe src=\"javascript:parent.document.title = 'g'\"></iframe>"
               "<a id=\"link\" href=\"javascript:document.title = 'h'\" onclick=\"document.title = 'i'\">x</a>"
               "<details open ontoggle=\"document.title = 'j'\">y</details>"
               "<input autofocus onfocus=\"document.title = 'k'\"><marquee onstart=\"document.title = 'l'\">z</marquee>"
               "<video src=x onerror=\"document.title = 'm'\"></video><object data=\"javascript:document.title = 'n'\"></object>"
               "<style onload=\"document.title = 'o'\">p {}</style><p style=\"animation: x 1ms\" onanimationend=\"document.title "
               "= 'p'\">p</p>");
  surface.inDocument("document.getElementById('link').click()");
  surface.inDocument("document.querySelector('input').focus()");
  letPass(500);

  EXPECT_EQ(surface.textInDocument("document.title"), title);
}

TEST(ScriptsOfThePage, never_run_in_a_whole_document_nor_when_they_are_set_or_pasted_or_undone)
{
  ShownSurface surface;
  surface.load("<html><head><script>document.title = 'a'</script></head><body onload=\"document.title = 'b'\" "
               "onfocus=\"document.title = 'c'\">"
               "<script>document.title = 'd'</script></body></html>");
  const std::string harmful = "<p>x</p><script>document.title = 'e'</script><img src=x onerror=\"document.title = 'f'\">";

  surface.setBodyInnerHtml(harmful);
  surface.pasteHtml(harmful);
  surface.execCommand(5049);
  surface.execCommand(5033);
  letPass(300);

  EXPECT_THAT(surface.textInDocument("document.title"), testing::Not(testing::MatchesRegex("[a-f]")));
}

TEST(ScriptsOfThePage, cannot_see_the_world_of_the_editing_script)
{
  ShownSurface surface;
  surface.load("<p>x</p>");

  const QVariant value = surface.inDocument("typeof editor + typeof qt", QWebEngineScript::MainWorld, 1000);

  EXPECT_FALSE(value.toString().contains("object"));
}

TEST(ThePage, stays_where_it_is_whatever_it_wants_to_go_to)
{
  CountingServer server;
  ShownSurface surface;
  const QUrl before = surface.page().url();

  surface.load("<meta http-equiv=\"refresh\" content=\"0;url=" + server.url("/refresh") + "\"><a id=\"link\" href=\"" +
               server.url("/link") + "\">x</a><form id=\"form\" action=\"" + server.url("/form") + "\"></form>");
  surface.inDocument("document.getElementById('link').click()");
  surface.inDocument("document.getElementById('form').submit()");
  letPass(700);

  EXPECT_EQ(surface.page().url(), before);
  EXPECT_EQ(server.connections, 0);
  EXPECT_NE(surface.bodyInnerHtml(), "");
}

TEST(TheNetwork, is_not_reached_by_a_page_without_pictures_on_it)
{
  CountingServer server;
  ShownSurface surface;

  surface.load("<link rel=\"stylesheet\" href=\"" + server.url("/a.css") + "\"><link rel=\"preconnect\" href=\"" +
               server.url("/") + "\"><link rel=\"prefetch\" href=\"" + server.url("/b") + "\"><link rel=\"icon\" href=\"" +
               server.url("/i.ico") + "\"><link rel=\"preload\" as=\"fetch\" href=\"" + server.url("/p") + "\"><script src=\"" +
               server.url("/c.js") + "\"></script><iframe src=\"" + server.url("/d.htm") + "\"></iframe><video src=\"" +
               server.url("/e.mp4") + "\" autoplay></video><audio src=\"" + server.url("/f.mp3") +
               "\" preload=auto></audio><object data=\"" + server.url("/g.swf") + "\"></object><embed src=\"" + server.url("/h") +
               "\"><style>@import url(" + server.url("/i.css") + "); @font-face { font-family: x; src: url(" +
               server.url("/j.woff") + ") } p { font-family: x }</style><p>Text</p>");
  letPass(1500);

  EXPECT_EQ(server.connections, 0) << server.requests;
}

TEST(TheNetwork, is_reached_for_a_picture_that_is_there)
{
  CountingServer server;
  ShownSurface surface;

  surface.load("<img src=\"" + server.url("/pix/haus.jpg") + "\">");

  EXPECT_TRUE(comesTrue([&] { return server.requests.find("GET /pix/haus.jpg") != std::string::npos; }));
}

TEST(LocalPicture, shows_in_every_form_of_its_reference)
{
  const TemporaryDirectory site;
  writePicture(site, "pix/haus.png");
  const std::string native = (site.native() / "pix/haus.png").string(), path = site.file("pix\\haus.png"), root = site.path();
  ShownSurface surface(site.path());

  surface.load("<img src=\"pix/haus.png\"><img src=\"pix\\haus.png\"><img src=\"file://pix/haus.png\"><img src=\"" + path +
               "\"><img src=\"file://" + path + "\"><img src=\"file:///" + native.substr(1) + "\"><img src=\"file://" + root +
               "\\pix/haus.png\"><img src=\"" + root + "\\\\pix\\haus.png\"><img src=\"file:\\\\\\" + path.substr(1) + "\">");

  EXPECT_EQ(pictureWidths(surface), "12 12 12 12 12 12 12 12 12");
}

TEST(LocalPicture, shows_whatever_the_case_of_its_name_and_with_umlauts_and_blanks)
{
  const TemporaryDirectory site;
  writePicture(site, "Pix/Großes Haus 50%.PNG");
  ShownSurface surface(site.path());

  surface.load("<img src=\"pix/großes haus 50%25.png\"><img src=\"file://" + site.path() +
               "\\PIX/GROßES%20HAUS%2050%25.png\"><img src=\"pix/gro%DFes%20haus%2050%25.png\">");

  EXPECT_EQ(pictureWidths(surface), "12 12 12");
}

TEST(LocalPicture, is_looked_for_in_the_directory_of_the_present_site)
{
  const TemporaryDirectory first, second;
  writePicture(second, "pix/haus.png");
  ShownSurface surface(first.path());
  surface.load("<img src=\"pix/haus.png\">");
  EXPECT_EQ(pictureWidths(surface), "0");

  surface.setSiteDirectory(second.path());
  comesTrue([&] { return !surface.busy(); });

  EXPECT_EQ(pictureWidths(surface), "12");
  EXPECT_EQ(surface.bodyInnerHtml(), "<img src=\"pix/haus.png\">");
}

TEST(LocalPicture, that_is_missing_or_on_a_drive_that_is_not_there_leaves_its_reference_as_it_is)
{
  ShownSurface surface;
  const std::string page =
      "<img src=\"file:///C:/fotos/x.jpg\"><img src=\"C:\\fotos\\x.jpg\"><img src=\"pix/x.jpg\"><img src=\"\">";

  surface.load(page);

  EXPECT_EQ(pictureWidths(surface), "0 0 0 0");
  EXPECT_EQ(surface.bodyInnerHtml(), page);
}

TEST(LocalFile, that_is_no_picture_is_not_read)
{
  const TemporaryDirectory site;
  site.write("geheim.txt", "p { color: red }");
  site.write("a.css", "p { color: rgb(1, 2, 3) }");
  ShownSurface surface(site.path());

  surface.load("<link rel=\"stylesheet\" href=\"a.css\"><iframe src=\"file://" + site.path() +
               "\\geheim.txt\"></iframe><img src=\"geheim.txt\"><p>Text</p>");
  letPass(300);

  EXPECT_EQ(surface.textInDocument("getComputedStyle(document.querySelector('p')).color"), "rgb(0, 0, 0)");
  EXPECT_EQ(pictureWidths(surface), "0");
}

} // namespace mrd::desktop
