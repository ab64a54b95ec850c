#include "generator/templates/nav_info.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/paths/page_file.h"

namespace mrd::templates {
namespace {

using base::format;

constexpr std::string_view kClosing = "</layer></td></tr></table></div>        ";

/// Strip with headings or with symbols, and its place on the page.
struct StripStyle {
  bool symbols;
  std::string_view position;
};

constexpr StripStyle kStyles[] = {{false, "absolute"}, {false, "relative"}, {true, "absolute"}, {true, "relative"}};

std::string opening(const StripStyle& style)
{
  return format("<div ID='mrdnav' STYLE='position:{};'><table border=0 cellpadding=0 cellspacing=0><tr>"
                "<td{}><layer ID='nsmrdnav' STYLE='position:absolute;'> ",
                style.position, style.symbols ? "" : " bgColor='[mrd:Tabellenfarbe]'");
}

} // namespace

std::string basislinkFor(int Seitentypid, std::string_view tbbasisurl)
{
  if (Seitentypid != 2 && Seitentypid != 4)
    return {};
  std::string link(tbbasisurl);
  if (!link.ends_with('/'))
    link += '/';
  return base::lower(base::left(link, 7)) == "http://" ? link : "http://" + link;
}

const std::string& LinkInfo::dateiname()
{
  if (dateiname_.empty())
    dateiname_ = paths::kDefaultPattern;
  if (!dateiname_.starts_with("http:/"))
    dateiname_ = base::lower(dateiname_);
  return dateiname_;
}

std::string LinkInfo::href()
{
  const bool isHomepage = Seitenid == "00" || Seitenid.empty();
  return KompletterLink + paths::fileOfPattern(dateiname(), isHomepage ? std::string_view("index") : Seitenid);
}

void LinkInfo::fill(const PageRow* page, std::string_view base)
{
  dateiname_ = page != nullptr ? page->dateiname : "";
  Überschrift = page != nullptr ? page->Überschrift : "";
  Seitenid = page != nullptr ? page->id : "";
  // A link that is emptied keeps the address of the page before: the last page of a site then still shows a link.
  if (page != nullptr)
    KompletterLink = base;
}

void NavInfo::AktuelleSeitenId(std::string_view Seitenid, int Seitentypid, PageSource& pages, std::string_view tbbasisurl)
{
  const std::string base = basislinkFor(Seitentypid, tbbasisurl);
  kept_ = Seitenid;
  const std::string_view id = Seitenid == "index" ? "00" : Seitenid;
  nächste.fill(pages.after(id), base);
  vorherige.fill(pages.before(id), base);
  if (id == "00") {
    übergeordnete.fill(nullptr, base);
  } else if (base::length(id) < 4) {
    übergeordnete.setDateiname(Homepage.dateiname());
    übergeordnete.Seitenid = Homepage.Seitenid;
    übergeordnete.Überschrift = Homepage.Überschrift;
    übergeordnete.KompletterLink = base;
  } else {
    übergeordnete.fill(pages.at(base::left(id, base::length(id) - 2)), base);
  }
}

std::string NavInfo::getBlätternNavigation(int type)
{
  if (type < 0 || type >= static_cast<int>(Blätterntyp::None))
    return {};
  const StripStyle& style = kStyles[type];
  const std::string home = Homepage.href(), previous = vorherige.href(), parent = übergeordnete.href(), next = nächste.href();
  const auto symbol = [](std::string_view href, std::string_view image, std::string_view heading) {
    return format(" <a href='{}'><img src='pix/{} alt='{}' border=0></a> ", href, image, heading);
  };
  constexpr std::string_view kText = "<a  style='color:[mrd:Menüaktivfarbe]' ";

  std::string strip = opening(style);
  if (previous != home)
    strip += style.symbols
                 ? symbol(previous, "nav_links.gif' align='bottom'", vorherige.Überschrift)
                 : format(" <a style='color:[mrd:Menüaktivfarbe]' href='{}'><-- {}</a> | ", previous, vorherige.Überschrift);
  if (kept_ != "index")
    strip += style.symbols ? symbol(home, "nav_home.gif'  align='bottom'", Homepage.Überschrift)
                           : format(" {}href='{}'>{}</a> | ", kText, home, Homepage.Überschrift);
  strip += style.symbols ? symbol("#oben", "nav_top.gif'  align='bottom'", "auf dieser Seite nach oben")
                         : format("{} href='#oben'>hoch</a> | ", kText);
  if (parent != home && parent != previous)
    strip += style.symbols ? symbol(parent, "nav_oben.gif'  align='bottom'", übergeordnete.Überschrift)
                           : format(" {}href='{}'>{}</a> | ", kText, parent, übergeordnete.Überschrift);
  if (next != home && !(style.symbols && next == ".htm"))
    strip += style.symbols ? symbol(next, "nav_rechts.gif'", nächste.Überschrift)
                           : format(" {}href='{}'>{} --></a> ", kText, next, nächste.Überschrift);
  return strip.append(kClosing);
}

} // namespace mrd::templates
