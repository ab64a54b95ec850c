// What holds after any deletion and any move in a dense tree, whatever the tree.

#include "pagetree/tree_desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace mrd::pagetree {
namespace {

/// A page is named by its heading, which it keeps; its children in their order.
using Shape = std::map<std::string, std::vector<std::string>>;

class DenseTrees : public testing::TestWithParam<unsigned> {
protected:
  int number(int least, int most) { return std::uniform_int_distribution(least, most)(dice_); }
  const std::string& anyOf(const std::vector<std::string>& texts)
  {
    return texts[std::uniform_int_distribution<std::size_t>(0, texts.size() - 1)(dice_)];
  }

  void grow()
  {
    desk_.project.db().execute("DELETE * FROM Seite");
    dao::Transaction transaction(desk_.project.db());
    desk_.add("00");
    growBelow("", number(2, 6));
    transaction.commit();
  }

  void growBelow(const std::string& parent, int children)
  {
    for (int child = 1; child <= children; ++child) {
      const std::string id = parent + formatNumber(child);
      desk_.add(id);
      if (id.size() < kMaxIdLength)
        growBelow(id, number(0, 2));
    }
  }

  std::map<std::string, std::string> headingsById()
  {
    std::map<std::string, std::string> out;
    for (auto rows = desk_.project.db().openSnapshot("SELECT id, Überschrift FROM Seite"); !rows.eof(); rows.moveNext()) {
      const std::string id = rows.value("id").text();
      EXPECT_TRUE(out.emplace(id, rows.value("Überschrift").text()).second) << id << " is there twice";
    }
    return out;
  }

  /// Fails for ids that are none, and for gaps.
  Shape shape()
  {
    const auto headings = headingsById();
    Shape out;
    for (const auto& [id, heading] : headings) {
      EXPECT_TRUE(isPageId(id)) << id;
      if (id == kRootId)
        continue;
      const std::string parent = id.size() == 2 ? std::string(kRootId) : parentOf(id);
      EXPECT_TRUE(headings.contains(parent)) << id << " has no parent";
      auto& siblings = out[headings.at(parent)];
      siblings.push_back(heading);
      EXPECT_EQ(numberOf(id), static_cast<int>(siblings.size())) << "gap before " << id;
    }
    return out;
  }

  std::multiset<std::string> contents()
  {
    std::multiset<std::string> out;
    for (auto rows = desk_.project.db().openSnapshot("SELECT * FROM Seite"); !rows.eof(); rows.moveNext()) {
      std::string row;
      for (const auto& column : rows.columns())
        row += column == "id" ? "" : rows.value(column).text() + "|";
      out.insert(row);
    }
    return out;
  }

  std::vector<std::string> ids()
  {
    auto all = desk_.project.ids();
    std::erase(all, kRootId);
    return all;
  }

  static Shape without(Shape shape, const std::set<std::string>& pages)
  {
    for (auto& [parent, children] : shape)
      std::erase_if(children, [&](const auto& child) { return pages.contains(child); });
    std::erase_if(shape, [&](const auto& entry) { return entry.second.empty() || pages.contains(entry.first); });
    return shape;
  }

  static Shape withoutChild(Shape shape, const std::string& page)
  {
    for (auto& [parent, children] : shape)
      std::erase(children, page);
    std::erase_if(shape, [](const auto& entry) { return entry.second.empty(); });
    return shape;
  }

  TreeDesk desk_{};

private:
  std::mt19937 dice_{GetParam()};
};

TEST_P(DenseTrees, stay_dense_after_each_move_and_only_the_moved_page_has_another_place)
{
  int moved = 0;
  grow();
  desk_.program.ui.acceptAll();
  for (int step = 0; step < 25; ++step) {
    const std::string source = anyOf(ids()), target = anyOf(ids());
    const auto headings = headingsById();
    const Shape before = shape();
    const auto contentsBefore = contents();

    const bool ran = desk_.moves(source, number(0, 1) == 0 ? MoveOption::Before : MoveOption::Behind, target);

    SCOPED_TRACE(source + " to " + desk_.request.MoveTargetID);
    EXPECT_EQ(contents(), contentsBefore);
    const Shape after = shape();
    if (!ran || desk_.request.MoveTargetID == source) {
      EXPECT_EQ(after, before);
      continue;
    }
    ++moved;
    const std::string& page = headings.at(source);
    EXPECT_EQ(withoutChild(after, page), withoutChild(before, page));
    const std::string parent = parentOf(desk_.request.MoveTargetID);
    const auto& siblings = after.at(headings.at(parent.empty() ? std::string(kRootId) : parent));
    const auto place = std::ranges::find(siblings, page);
    ASSERT_NE(place, siblings.end());
    if (numberOf(desk_.request.MoveTargetID) == 0)
      EXPECT_EQ(place, siblings.begin());
    else
      EXPECT_EQ(*std::prev(place), headings.at(desk_.request.MoveTargetID));
  }
  EXPECT_GT(moved, 3);
}

TEST_P(DenseTrees, stay_dense_after_each_deletion_and_keep_what_was_not_deleted)
{
  grow();
  desk_.program.ui.acceptAll();
  while (ids().size() > 1) {
    const std::string doomed = anyOf(ids());
    const auto headings = headingsById();
    const Shape before = shape();
    std::set<std::string> gone;
    std::vector<std::string> level;
    for (const auto& [id, heading] : headings) {
      if (id.starts_with(doomed))
        gone.insert(heading);
      else if (id.size() == doomed.size() && id != kRootId)
        level.push_back(heading);
    }
    desk_.program.ui.expect(gone.size() == 1 ? 22 : 23, "", ui::Button::Yes);

    ASSERT_TRUE(desk_.deletes(doomed));

    SCOPED_TRACE(doomed);
    EXPECT_EQ(contents().size(), headings.size() - gone.size());
    // The only page that is left on a level goes to the deleted one's parent.
    const std::string wanderer = level.size() == 1 ? level.front() : "";
    EXPECT_EQ(withoutChild(shape(), wanderer), withoutChild(without(before, gone), wanderer));
  }
}

INSTANTIATE_TEST_SUITE_P(Random, DenseTrees, testing::Range(1U, 21U));

} // namespace
} // namespace mrd::pagetree
