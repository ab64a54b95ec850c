// Table commands on tables as nobody would write them by hand. After every command each table is a sound grid, and undoing brings
// every page back to the letter.

#include "desktop/editing/shown_surface.h"
#include "desktop/editing/table_walk.h"
#include "platform/ui/editing_commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace mrd::desktop {

using namespace ui::command;

namespace {

constexpr unsigned kCommands = 6;

/// From outside more of them, and others, can be asked for.
unsigned asked(const char* variable, unsigned otherwise)
{
  const char* const number = std::getenv(variable);
  return number ? static_cast<unsigned>(std::atoi(number)) : otherwise;
}

/// Tables without an overlap or a hole, with spans, nested ones, heads and feet.
class Maker {
public:
  explicit Maker(unsigned seed) : random_(seed) {}

  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  std::string table(int depth = 0)
  {
    const int columns = 1 + below(4);
    std::string html = depth == 0 ? "<table border=\"1\">" : "<table>";
    if (below(5) == 0)
      html += "<caption>Titel</caption>";
    if (below(4) == 0)
      html += "<colgroup>" + repeated("<col>", columns) + "</colgroup>";
    if (below(4) == 0)
      html += "<thead>" + group(1 + below(2), columns, depth) + "</thead>";
    html += "<tbody>" + group(1 + below(4), columns, depth) + "</tbody>";
    if (below(6) == 0)
      html += "<tbody>" + group(1 + below(2), columns, depth) + "</tbody>";
    return html + "</table>";
  }

private:
  static std::string repeated(const std::string& text, int times)
  {
    std::string all;
    for (int i = 0; i < times; ++i)
      all += text;
    return all;
  }

  std::string group(int rows, int columns, int depth)
  {
    std::vector<std::vector<bool>> taken(static_cast<std::size_t>(rows), std::vector<bool>(static_cast<std::size_t>(columns)));
    std::string html;
    for (int y = 0; y < rows; ++y) {
      html += "<tr>";
      for (int x = 0; x < columns; ++x)
        if (!taken[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)])
          html += cell(taken, y, x, depth);
      html += "</tr>";
    }
    return html;
  }

  std::string cell(std::vector<std::vector<bool>>& taken, int y, int x, int depth)
  {
    const auto isFree = [&](int row, int column) {
      return row < static_cast<int>(taken.size()) && column < static_cast<int>(taken[0].size()) &&
             !taken[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    };
    int width = 1, height = 1;
    while (below(3) == 0 && isFree(y, x + width))
      ++width;
    while (below(3) == 0 && isFree(y + height, x))
      ++height;
    for (int dy = 0; dy < height; ++dy)
      for (int dx = 0; dx < width; ++dx)
        if (!isFree(y + dy, x + dx))
          height = dy;
    for (int dy = 0; dy < height; ++dy)
      for (int dx = 0; dx < width; ++dx)
        taken[static_cast<std::size_t>(y + dy)][static_cast<std::size_t>(x + dx)] = true;
    std::string html = below(6) == 0 ? "<th" : "<td";
    const std::string end = html == "<th" ? "</th>" : "</td>";
    if (width > 1)
      html += " colspan=\"" + std::to_string(width) + "\"";
    if (height > 1)
      html += " rowspan=\"" + std::to_string(height) + "\"";
    html += ">" + std::to_string(++text_);
    if (depth < 2 && below(8) == 0)
      html += table(depth + 1);
    return html + end;
  }

  std::mt19937 random_;
  int text_ = 0;
};

struct Holes {
  int all = 0, inner = 0;
};

Holes holesOf(const std::string& html)
{
  Holes holes;
  for (const auto& table : walkAll(html)) {
    EXPECT_EQ(table.overlaps, 0) << html;
    holes.all += table.holes;
    holes.inner += table.innerHoles;
  }
  return holes;
}

} // namespace

TEST(RandomTables, stay_sound_grids_after_any_commands_and_come_back_to_the_letter)
{
  constexpr int kAll[] = {kInsertRow,     kInsertColumn, kInsertCell, kDeleteRows,
                          kDeleteColumns, kDeleteCells,  kMergeCells, kSplitCell};
  ShownSurface surface;
  const unsigned tables = asked("MRD_RANDOM_TABLES", 200), firstSeed = asked("MRD_RANDOM_SEED", 1);
  unsigned done = 0;
  for (unsigned seed = firstSeed; seed < firstSeed + tables; ++seed) {
    Maker maker(seed);
    surface.load("<p>davor</p>" + maker.table() + "<p>danach</p>");
    ASSERT_EQ(holesOf(surface.bodyInnerHtml()).all, 0) << seed;
    std::vector<std::string> pages{surface.bodyInnerHtml()};
    for (unsigned i = 0; i < kCommands; ++i) {
      const int command = kAll[maker.below(std::size(kAll))];
      // From one cell to another of the same table, or inside of one.
      surface.inDocument(QString("{ const all = [...document.querySelectorAll('td,th')], a = all[%1 % all.length]; if (a) {"
                                 "const own = [...a.closest('table').rows].flatMap(r => [...r.cells]), at = own.indexOf(a),"
                                 "b = %3 ? own[Math.min(own.length - 1, at + %2)] : a;"
                                 "getSelection().setBaseAndExtent(a, 0, b, b === a ? 0 : b.childNodes.length); } }")
                             .arg(maker.below(60))
                             .arg(maker.below(4))
                             .arg(command == kInsertRow || maker.below(2) == 0 ? 0 : 1));
      const Holes before = holesOf(pages.back());
      if (!surface.execCommand(command))
        continue;
      ++done;
      pages.push_back(surface.bodyInnerHtml());
      const Holes after = holesOf(pages.back());
      // To insert or delete a single cell changes the length of its row; all other commands leave no hole that was not there.
      if (command == kInsertCell || command == kDeleteCells || before.all > 0)
        EXPECT_EQ(after.inner, 0) << seed << " " << command << "\n" << pages[pages.size() - 2] << "\n" << pages.back();
      else
        EXPECT_EQ(after.all, 0) << seed << " " << command << "\n" << pages[pages.size() - 2] << "\n" << pages.back();
    }
    while (pages.size() > 1) {
      pages.pop_back();
      ASSERT_TRUE(surface.execCommand(kUndo)) << seed;
      ASSERT_EQ(surface.bodyInnerHtml(), pages.back()) << seed;
    }
  }
  EXPECT_GT(done, tables * 3);
  std::cout << done << " commands\n";
}

TEST(RaggedTables, get_no_overlap_and_no_more_holes_from_rows_columns_merging_and_splitting)
{
  ShownSurface surface;
  for (const char* const html :
       {"<table><tbody><tr><td id=x>a<td>b<td>c<tr><td>d</table>", "<table><tbody><tr><td>a<td rowspan=5 id=x>b<tr><td>c</table>",
        "<table><tbody><tr><td rowspan=0 id=x>a<td>b<tr><td>c<tr><td>d</table>",
        "<table><tbody><tr><td>a<td rowspan=2>b<td rowspan=2 id=x>c<tr></tr></table>",
        "<table><tbody><tr><td id=x>a<td>b<td rowspan=2>c<tr><td>d</table>"}) {
    for (const int command : {kInsertRow, kInsertColumn, kDeleteRows, kDeleteColumns, kSplitCell}) {
      surface.load(html);
      const std::string before = surface.bodyInnerHtml();
      const Holes had = holesOf(before);
      surface.placeCursor("#x", 0);
      EXPECT_TRUE(surface.execCommand(command));
      EXPECT_LE(holesOf(surface.bodyInnerHtml()).all, had.all + 1) << html << command;
      surface.execCommand(kUndo);
      EXPECT_EQ(surface.bodyInnerHtml(), before);
    }
  }
}

TEST(OverlappingCells, are_narrowed_by_the_next_command)
{
  ShownSurface surface;
  surface.load("<table><tbody><tr><td id=x>a<td rowspan=2>b<tr><td colspan=2>c</table>");
  ASSERT_EQ(walkAll(surface.bodyInnerHtml()).front().overlaps, 1);
  surface.placeCursor("#x", 0);

  surface.execCommand(kInsertRow);

  EXPECT_EQ(walkAll(surface.bodyInnerHtml()).front().overlaps, 0);
}

} // namespace mrd::desktop
