#pragma once

#include <QImage>
#include <QObject>
#include <QSize>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>

namespace mrd::desktop {

/// Makes small pictures of files on a thread of its own, those that were asked for last first.
class ThumbnailMaker : public QObject {
public:
  /// `made` is called on the thread of this object, for each file that find() had not got yet.
  ThumbnailMaker(QSize largest, std::function<void()> made);
  ~ThumbnailMaker() override;

  enum class State { UnderWay, Made, Unreadable };
  struct Thumbnail {
    State state = State::UnderWay;
    QImage picture;
  };
  /// What there is of the file (a path of the system); asks for what is not there.
  const Thumbnail& find(const std::string& path);
  /// The file has changed.
  void forget(const std::string& path);
  /// Nobody looks at the files that were asked for any more.
  void forgetAll();

private:
  struct Work {
    std::string path;
    int number = 0;
  };
  void run();
  void arrived(const Work& work, QImage picture);

  const QSize largest_;
  const std::function<void()> made_;
  std::unordered_map<std::string, Thumbnail> thumbnails_;
  /// Tells the answers to older questions from those to new ones.
  int generation_ = 0;

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<Work> waiting_;
  bool ending_ = false;
  std::thread thread_;
};

} // namespace mrd::desktop
