#include "desktop/controls/html_colours.h"

#include "editor/source_tags.h"

#include <QPalette>
#include <QTextBlockUserData>

#include <array>

namespace mrd::desktop {
namespace {

/// Lines above and below those in sight that are coloured with them.
constexpr int kMargin = 60;
/// A longer line would take long to lay out in many colours.
constexpr qsizetype kLongestLine = 20000;
constexpr int kMiddle = 128;

struct Colour {
  const char* light;
  const char* dark;
};
/// In the order of editor::SourcePart.
constexpr std::array kColours{Colour{"#1f4fa8", "#7fb0ff"}, Colour{"#8a3b00", "#e0a878"}, Colour{"#1b6b2f", "#8fd08f"},
                              Colour{"#7a2a90", "#d7a0ea"}, Colour{"#707070", "#9a9a9a"}, Colour{"#4a4a78", "#b0b0dc"}};

/// A line that has its colours.
struct Coloured : QTextBlockUserData {};

} // namespace

HtmlColours::HtmlColours(QTextDocument& document) : QSyntaxHighlighter(&document) {}

void HtmlColours::setPalette(const QPalette& palette)
{
  const bool dark = palette.color(QPalette::Base).lightness() < kMiddle;
  if (dark == dark_)
    return;
  dark_ = dark;
  rehighlight();
}

void HtmlColours::show(int firstBlock, int lastBlock)
{
  first_ = firstBlock - kMargin;
  last_ = lastBlock + kMargin;
  for (QTextBlock block = document()->findBlockByNumber(std::max(0, first_)); block.isValid() && block.blockNumber() <= last_;
       block = block.next())
    if (!block.userData())
      rehighlightBlock(block);
}

void HtmlColours::highlightBlock(const QString& text)
{
  const int number = currentBlock().blockNumber();
  const bool isShown = number >= first_ && number <= last_;
  const bool hasColours = isShown && text.size() <= kLongestLine;
  const auto colour = [&](editor::SourcePart part, std::size_t start, std::size_t length) {
    const auto& [light, dark] = kColours[static_cast<std::size_t>(part)];
    setFormat(static_cast<int>(start), static_cast<int>(length), QColor(dark_ ? dark : light));
  };
  const auto pass = [](editor::SourcePart, std::size_t, std::size_t) {};
  const std::u16string_view line(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size()));
  const int state = std::max(0, previousBlockState());
  setCurrentBlockState(hasColours ? editor::partsOfLine(line, state, colour) : editor::partsOfLine(line, state, pass));
  setCurrentBlockUserData(isShown ? new Coloured : nullptr);
}

} // namespace mrd::desktop
