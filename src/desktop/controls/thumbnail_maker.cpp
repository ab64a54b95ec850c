#include "desktop/controls/thumbnail_maker.h"

#include "base/errors.h"
#include "desktop/controls/shown_image.h"
#include "platform/image/image.h"

#include <algorithm>
#include <utility>

namespace mrd::desktop {
namespace {

/// What has scrolled out of sight need not be made: no list shows more rows than this.
constexpr std::size_t kMostWaiting = 100;
/// About 20 MB of small pictures.
constexpr std::size_t kMostKept = 2000;

/// Null for a file that cannot be read.
QImage read(const std::string& path, QSize largest)
{
  using image::Image;
  try {
    const auto size = Image::sizeOf(path);
    const QSize wanted = QSize(size.width, size.height).scaled(largest, Qt::KeepAspectRatio).expandedTo({1, 1});
    const bool isSmall = size.width <= largest.width() && size.height <= largest.height();
    const auto picture = isSmall ? Image::load(path) : Image::loadResized(path, {wanted.width(), wanted.height()});
    return shownImage(picture).copy();
  } catch (const base::Error&) {
    return {};
  }
}

} // namespace

ThumbnailMaker::ThumbnailMaker(QSize largest, std::function<void()> made)
    : largest_(largest), made_(std::move(made)), thread_([this] { run(); })
{
}

ThumbnailMaker::~ThumbnailMaker()
{
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  wake_.notify_one();
  thread_.join();
}

const ThumbnailMaker::Thumbnail& ThumbnailMaker::find(const std::string& path)
{
  if (thumbnails_.size() >= kMostKept)
    forgetAll();
  const auto [entry, isNew] = thumbnails_.try_emplace(path);
  if (!isNew)
    return entry->second;
  std::string dropped;
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back({path, generation_});
    if (waiting_.size() > kMostWaiting) {
      dropped = std::move(waiting_.front().path);
      waiting_.pop_front();
    }
  }
  wake_.notify_one();
  if (!dropped.empty())
    thumbnails_.erase(dropped);
  return thumbnails_.at(path);
}

void ThumbnailMaker::forget(const std::string& path)
{
  const auto entry = thumbnails_.find(path);
  if (entry != thumbnails_.end() && entry->second.state != State::UnderWay)
    thumbnails_.erase(entry);
}

void ThumbnailMaker::forgetAll()
{
  thumbnails_.clear();
  ++generation_;
  const std::lock_guard lock(mutex_);
  waiting_.clear();
}

void ThumbnailMaker::run()
{
  for (;;) {
    Work work;
    {
      std::unique_lock lock(mutex_);
      wake_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
      if (ending_)
        return;
      work = std::move(waiting_.back());
      waiting_.pop_back();
    }
    QMetaObject::invokeMethod(
        this, [this, work, picture = read(work.path, largest_)] { arrived(work, picture); }, Qt::QueuedConnection);
  }
}

void ThumbnailMaker::arrived(const Work& work, QImage picture)
{
  if (work.number != generation_)
    return;
  const auto entry = thumbnails_.find(work.path);
  if (entry == thumbnails_.end())
    return;
  entry->second = {picture.isNull() ? State::Unreadable : State::Made, std::move(picture)};
  made_();
}

} // namespace mrd::desktop
