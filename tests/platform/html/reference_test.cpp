#include "platform/html/document.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace mrd::html {
namespace {

struct Case {
  std::string_view base;
  std::string_view reference;
  std::string_view resolved;
};

void PrintTo(const Case& sample, std::ostream* out) { *out << sample.reference << " against " << sample.base; }

class Resolving : public ::testing::TestWithParam<Case> {};

TEST_P(Resolving, follows_the_base)
{
  const auto& [base, reference, resolved] = GetParam();
  const auto document = Document::fromText(std::string("<base href='").append(base).append("'>"));

  EXPECT_EQ(document.resolve(reference), resolved);
}

constexpr std::string_view kBackslashes = R"(file://\home\anna\site\)";
constexpr std::string_view kSlashes = "file:///home/anna/site/";
constexpr std::string_view kDrive = R"(file://C:\site\)";

INSTANTIATE_TEST_SUITE_P(Relative, Resolving,
                         ::testing::Values(Case{kBackslashes, "pix/x.jpg", R"(file://\home\anna\site\pix/x.jpg)"},
                                           Case{kBackslashes, R"(pix\x.jpg)", R"(file://\home\anna\site\pix\x.jpg)"},
                                           Case{kSlashes, "pix/x y.jpg", "file:///home/anna/site/pix/x y.jpg"},
                                           Case{kDrive, "x.jpg", R"(file://C:\site\x.jpg)"},
                                           Case{"file:///home/anna/page.htm?a#b", "x.jpg", "file:///home/anna/x.jpg"},
                                           Case{"file:///home", "x.jpg", "file:///x.jpg"},
                                           Case{"http://a.de/b/c", "x.jpg", "http://a.de/b/x.jpg"},
                                           Case{"http://a.de", "x.jpg", "http://a.de/x.jpg"},
                                           Case{kSlashes, " x.jpg\n", "file:///home/anna/site/x.jpg"}));

INSTANTIATE_TEST_SUITE_P(Dots, Resolving,
                         ::testing::Values(Case{kBackslashes, "../x.jpg", R"(file://\home\anna\x.jpg)"},
                                           Case{kSlashes, R"(..\..\x.jpg)", "file:///home/x.jpg"},
                                           Case{kSlashes, "./a/./../b/x.jpg", "file:///home/anna/site/b/x.jpg"},
                                           Case{kSlashes, "../../../../../x.jpg", "file:///x.jpg"},
                                           Case{kBackslashes, R"(..\..\..\..\x.jpg)", R"(file://\x.jpg)"},
                                           Case{kDrive, R"(..\..\x.jpg)", R"(file://C:\x.jpg)"},
                                           Case{"file:///C:/a/", "../../x.jpg", "file:///C:/x.jpg"},
                                           Case{"file://server/a/", "../../x.jpg", "file://server/x.jpg"},
                                           Case{kSlashes, "..", "file:///home/anna/"},
                                           Case{kSlashes, ".", "file:///home/anna/site/"},
                                           Case{kSlashes, "/a/../b/x.jpg", "file:///b/x.jpg"},
                                           Case{kSlashes, "...x/..y.jpg", "file:///home/anna/site/...x/..y.jpg"}));

INSTANTIATE_TEST_SUITE_P(Rooted, Resolving,
                         ::testing::Values(Case{kBackslashes, "/x/y.jpg", "file:///x/y.jpg"},
                                           Case{kBackslashes, R"(\x\y.jpg)", R"(file://\x\y.jpg)"},
                                           Case{kSlashes, R"(C:\x\y.jpg)", R"(file://C:\x\y.jpg)"},
                                           Case{kSlashes, "d:/x.jpg", "file://d:/x.jpg"},
                                           Case{"http://a.de/b/", "/x.jpg", "http://a.de/x.jpg"},
                                           Case{"http://a.de/b/", R"(C:\x.jpg)", R"(file://C:\x.jpg)"}));

INSTANTIATE_TEST_SUITE_P(WithScheme, Resolving,
                         ::testing::Values(Case{kSlashes, "http://a.de/../x.jpg", "http://a.de/../x.jpg"},
                                           Case{kSlashes, "mailto:a@b.de", "mailto:a@b.de"},
                                           Case{kSlashes, "javascript:popup('file:///C:/x.jpg')",
                                                "javascript:popup('file:///C:/x.jpg')"},
                                           Case{kSlashes, "data:image/gif;base64,xx", "data:image/gif;base64,xx"},
                                           Case{kSlashes, R"(FILE:\\\home\x.jpg)", R"(FILE:\\\home\x.jpg)"}));

INSTANTIATE_TEST_SUITE_P(QueryAndFragment, Resolving,
                         ::testing::Values(Case{kSlashes, "a.htm?b=../c#../d", "file:///home/anna/site/a.htm?b=../c#../d"},
                                           Case{kSlashes, "#oben", "file:///home/anna/site/#oben"},
                                           Case{"file:///a/b.htm?c#d", "#oben", "file:///a/b.htm?c#oben"},
                                           Case{"file:///a/b.htm?c#d", "?e", "file:///a/b.htm?e"}, Case{kSlashes, "", ""},
                                           Case{kSlashes, "/a/b?../c", "file:///a/b?../c"}));

TEST(ResolvingWithoutBase, leaves_the_reference_as_it_is)
{
  const auto document = Document::fromText("<base fontsize=2><p>x");

  EXPECT_EQ(document.resolve("../x.jpg"), "../x.jpg");
  EXPECT_EQ(document.resolve("/x.jpg"), "/x.jpg");
}

TEST(ResolvingWithSeveralBases, takes_the_first_that_has_a_reference)
{
  const auto document = Document::fromText("<base fontsize=2><base href=file:///a/><base href=file:///b/>");

  EXPECT_EQ(document.resolve("x.jpg"), "file:///a/x.jpg");
}

TEST(ResolvingInAChangedDocument, follows_the_change)
{
  auto document = Document::fromText("<base href=file:///a/>");
  EXPECT_EQ(document.resolve("x"), "file:///a/x");

  document.elementsByTag("base").front().setAttribute("href", "file:///b/");
  EXPECT_EQ(document.resolve("x"), "file:///b/x");

  document.head().setInnerHtml("");
  EXPECT_EQ(document.resolve("x"), "x");

  document.body().setInnerHtml("<base href=file:///c/>");
  EXPECT_EQ(document.resolve("x"), "file:///c/x");
}

} // namespace
} // namespace mrd::html
