#include "desktop/controls/html_source.h"

#include "editor/source_tags.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

#include <algorithm>

namespace mrd::desktop {
namespace {

/// The tags at the cursor are looked for when it rests.
constexpr int kTagsMs = 60;
constexpr int kNumbersMargin = 6;
constexpr std::size_t kMostPlaces = 500;

std::u16string_view view(const QString& text)
{
  return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

QString fieldForm(std::string_view text)
{
  QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  return shown.remove(QLatin1Char('\r'));
}

/// As the document holds it; blanks that do not break stay what they are.
QString rawText(QString text)
{
  for (QChar& letter : text)
    if (letter == QChar::ParagraphSeparator || letter == QChar::LineSeparator)
      letter = QLatin1Char('\n');
  return text;
}

QTextEdit::ExtraSelection mark(QPlainTextEdit& field, const ui::TextRange& range, const QColor& colour)
{
  QTextEdit::ExtraSelection selection;
  selection.cursor = QTextCursor(field.document());
  selection.cursor.setPosition(static_cast<int>(range.start));
  selection.cursor.setPosition(static_cast<int>(range.end()), QTextCursor::KeepAnchor);
  selection.format.setBackground(colour);
  return selection;
}

} // namespace

/// The column with the numbers of the lines.
class HtmlSource::Numbers : public QWidget {
public:
  explicit Numbers(HtmlSource& field) : QWidget(&field), field_(field) {}

protected:
  void paintEvent(QPaintEvent* event) override { field_.paintNumbers(*event); }

private:
  HtmlSource& field_;
};

HtmlSource::HtmlSource(QWidget* parent) : SourceText(parent), colours_(*document()), numbers_(new Numbers(*this))
{
  numbers_->setObjectName("lineNumbers");
  tagsTimer_.setSingleShot(true);
  connect(&tagsTimer_, &QTimer::timeout, this, &HtmlSource::findTags);
  connect(document(), &QTextDocument::contentsChange, this, &HtmlSource::mirrorChange);
  connect(this, &QPlainTextEdit::blockCountChanged, this, &HtmlSource::placeNumbers);
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { tagsTimer_.start(kTagsMs); });
  connect(this, &QPlainTextEdit::textChanged, this, &HtmlSource::showLines);
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int scrolled) {
    if (scrolled == 0)
      return numbers_->update(0, area.y(), numbers_->width(), area.height());
    numbers_->scroll(0, scrolled);
    showLines();
  });
  colours_.setPalette(palette());
  placeNumbers();
}

HtmlSource::~HtmlSource()
{
  // The colours leave the document with a last change, of which nobody needs to know.
  blockSignals(true);
  QObject::disconnect(document(), nullptr, this, nullptr);
}

// --- text

void HtmlSource::mirrorChange(int position, int removed, int added)
{
  const bool isAll = position == 0 && removed >= mirror_.text().size();
  if (!isAll && position + removed <= mirror_.text().size()) {
    QTextCursor piece(document());
    piece.setPosition(position);
    piece.setPosition(std::min(position + added, document()->characterCount() - 1), QTextCursor::KeepAnchor);
    mirror_.replace(position, removed, rawText(piece.selectedText()));
  }
  // The document counts its own last paragraph now and then; what does not fit is taken anew.
  if (isAll || mirror_.text().size() != document()->characterCount() - 1)
    mirror_.reset(rawText(document()->toRawText()));
}

void HtmlSource::setSource(std::string_view text)
{
  if (QString shown = fieldForm(text); shown != mirror_.text())
    setPlainText(shown);
}

ui::TextRange HtmlSource::selection() const
{
  const QTextCursor cursor = textCursor();
  return {static_cast<std::size_t>(cursor.selectionStart()),
          static_cast<std::size_t>(cursor.selectionEnd() - cursor.selectionStart())};
}

std::string HtmlSource::selectedText() const
{
  const auto [start, length] = selection();
  return mirror_.text().mid(static_cast<qsizetype>(start), static_cast<qsizetype>(length)).toStdString();
}

void HtmlSource::select(const ui::TextRange& range)
{
  QTextCursor cursor = textCursor();
  cursor.setPosition(static_cast<int>(range.start));
  cursor.setPosition(static_cast<int>(range.end()), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void HtmlSource::replaceSelection(std::string_view text)
{
  QTextCursor cursor = textCursor();
  cursor.insertText(fieldForm(text));
  setTextCursor(cursor);
}

std::optional<ui::TextRange> HtmlSource::find(std::string_view text, std::size_t from) const
{
  const QString wanted = fieldForm(text);
  const qsizetype at = mirror_.text().indexOf(wanted, static_cast<qsizetype>(from), Qt::CaseInsensitive);
  if (at < 0 || wanted.isEmpty())
    return std::nullopt;
  return ui::TextRange{static_cast<std::size_t>(at), static_cast<std::size_t>(wanted.size())};
}

void HtmlSource::markAll(std::string_view text)
{
  marked_ = fieldForm(text);
  showMarks();
}

bool HtmlSource::can(ui::EditAction action) const
{
  switch (action) {
  case ui::EditAction::Undo:
    return document()->isUndoAvailable();
  case ui::EditAction::Redo:
    return document()->isRedoAvailable();
  case ui::EditAction::Cut:
  case ui::EditAction::Copy:
    return textCursor().hasSelection();
  case ui::EditAction::Paste:
    return canPaste();
  case ui::EditAction::SelectAll:
    break;
  }
  return true;
}

void HtmlSource::run(ui::EditAction action)
{
  switch (action) {
  case ui::EditAction::Undo:
    return undo();
  case ui::EditAction::Redo:
    return redo();
  case ui::EditAction::Cut:
    return cut();
  case ui::EditAction::Copy:
    return copy();
  case ui::EditAction::Paste:
    return paste();
  case ui::EditAction::SelectAll:
    return selectAll();
  }
}

void HtmlSource::setFocus() { QWidget::setFocus(); }

// --- what is shown

int HtmlSource::lastVisibleBlock() const
{
  QTextBlock block = firstVisibleBlock();
  qreal bottom = blockBoundingGeometry(block).translated(contentOffset()).bottom();
  while (block.next().isValid() && bottom < viewport()->height()) {
    block = block.next();
    bottom += blockBoundingRect(block).height();
  }
  return block.blockNumber();
}

void HtmlSource::showLines()
{
  colours_.show(firstVisibleBlock().blockNumber(), lastVisibleBlock());
  tagsTimer_.start(kTagsMs);
  showMarks();
  numbers_->update();
}

int HtmlSource::numbersWidth() const
{
  const auto digits = QString::number(std::max(100, blockCount())).size();
  return 2 * kNumbersMargin + fontMetrics().horizontalAdvance(QLatin1Char('9')) * static_cast<int>(digits);
}

void HtmlSource::placeNumbers()
{
  setViewportMargins(numbersWidth(), 0, 0, 0);
  const QRect room = contentsRect();
  numbers_->setGeometry(room.left(), room.top(), numbersWidth(), room.height());
}

void HtmlSource::paintNumbers(QPaintEvent& event)
{
  QPainter painter(numbers_);
  painter.fillRect(event.rect(), palette().color(QPalette::Window));
  painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
  const int width = numbers_->width() - kNumbersMargin, height = fontMetrics().height();
  QTextBlock block = firstVisibleBlock();
  qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
  while (block.isValid() && top <= event.rect().bottom()) {
    painter.drawText(QRectF(0, top, width, height), Qt::AlignRight, QString::number(block.blockNumber() + 1));
    top += blockBoundingRect(block).height();
    block = block.next();
  }
}

void HtmlSource::findTags()
{
  tags_.clear();
  const auto pair = editor::tagAt(view(mirror_.text()), static_cast<std::size_t>(textCursor().position()));
  if (pair && (pair->partner || !pair->isVoid))
    tags_.push_back(pair->tag);
  if (pair && pair->partner)
    tags_.push_back(*pair->partner);
  showMarks();
}

void HtmlSource::showMarks()
{
  places_.clear();
  const auto end = static_cast<std::size_t>(mirror_.text().size());
  const QTextBlock last = document()->findBlockByNumber(lastVisibleBlock());
  const qsizetype from = firstVisibleBlock().position(), until = last.position() + last.length();
  const QStringView inSight = QStringView(mirror_.text()).mid(from, std::max<qsizetype>(0, until - from));
  for (qsizetype at = marked_.isEmpty() ? -1 : inSight.indexOf(marked_, 0, Qt::CaseInsensitive);
       at >= 0 && places_.size() < kMostPlaces; at = inSight.indexOf(marked_, at + marked_.size(), Qt::CaseInsensitive))
    places_.push_back({static_cast<std::size_t>(from + at), static_cast<std::size_t>(marked_.size())});
  const bool dark = palette().color(QPalette::Base).lightness() < 128;
  QList<QTextEdit::ExtraSelection> marks;
  for (const auto& place : places_)
    marks << mark(*this, place, QColor(dark ? "#6b5600" : "#ffe27a"));
  // A tag without its other half stands out.
  const QColor colour(tags_.size() == 1 ? (dark ? "#70302f" : "#ffd0cc") : (dark ? "#2f4a70" : "#cfe2ff"));
  for (const auto& tag : tags_)
    if (tag.end() <= end)
      marks << mark(*this, tag, colour);
  setExtraSelections(marks);
}

void HtmlSource::resizeEvent(QResizeEvent* event)
{
  SourceText::resizeEvent(event);
  placeNumbers();
  showLines();
}

void HtmlSource::showEvent(QShowEvent* event)
{
  SourceText::showEvent(event);
  showLines();
}

void HtmlSource::changeEvent(QEvent* event)
{
  SourceText::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    placeNumbers();
  if (event->type() != QEvent::PaletteChange)
    return;
  colours_.setPalette(palette());
  showLines();
}

} // namespace mrd::desktop
