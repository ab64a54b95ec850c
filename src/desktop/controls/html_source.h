#pragma once

#include "desktop/controls/html_colours.h"
#include "desktop/controls/source_mirror.h"
#include "desktop/controls/source_text.h"
#include "platform/ui/source_field.h"

#include <QTimer>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::desktop {

/// The editor for a page's HTML: numbered lines, colours, tags that belong together, marks where a text stands.
class HtmlSource : public SourceText, public ui::SourceField {
public:
  explicit HtmlSource(QWidget* parent = nullptr);
  ~HtmlSource() override;

  const std::string& source() const { return mirror_.source(); }
  void setSource(std::string_view text);

  ui::TextRange selection() const override;
  std::string selectedText() const override;
  void select(const ui::TextRange& range) override;
  void replaceSelection(std::string_view text) override;
  std::optional<ui::TextRange> find(std::string_view text, std::size_t from) const override;
  void markAll(std::string_view text) override;
  bool can(ui::EditAction action) const override;
  void run(ui::EditAction action) override;
  using QWidget::setFocus;
  void setFocus() override;

  /// The parts of the text that are marked in sight: tags that belong together, then places of the text that is looked for.
  std::vector<ui::TextRange> markedTags() const { return tags_; }
  std::vector<ui::TextRange> markedPlaces() const { return places_; }

protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  class Numbers;

  void mirrorChange(int position, int removed, int added);
  void showLines();
  void placeNumbers();
  void paintNumbers(QPaintEvent& event);
  int numbersWidth() const;
  void findTags();
  void showMarks();
  int lastVisibleBlock() const;

  SourceMirror mirror_;
  HtmlColours colours_;
  Numbers* numbers_;
  QTimer tagsTimer_;
  QString marked_;
  std::vector<ui::TextRange> tags_, places_;
};

} // namespace mrd::desktop
