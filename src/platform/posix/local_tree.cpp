#include "platform/local_tree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

#include "platform/posix/descriptors.h"

namespace zeapi::platform {
namespace {

constexpr int kFolderFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

int OpenFolder(int parent, const char* name) {
  const int folder = AboveStandardStreams(openat(parent, name, kFolderFlags));
  if (folder >= 0 || errno != ENOENT) return folder;
  // Somebody else may make it at the same time.
  if (mkdirat(parent, name, 0777) != 0 && errno != EEXIST) return -1;
  return AboveStandardStreams(openat(parent, name, kFolderFlags));
}

// True also when nobody can tell.
bool IsFile(const struct stat& status, FileHandle file) {
  struct stat other;
  return fstat(file, &other) != 0 ||
         (status.st_dev == other.st_dev && status.st_ino == other.st_ino);
}

// Empties a file that has just been opened.
bool Empty(int file, FileHandle spared) {
  struct stat status;
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return false;
  if (status.st_size == 0) return true;
  return (spared == kNoFileHandle || !IsFile(status, spared)) && ftruncate(file, 0) == 0;
}

bool ToSeconds(std::uint16_t date, std::uint16_t time, time_t* seconds) {
  using namespace std::chrono;
  const year_month_day day(year(1980 + (date >> 9)), month(date >> 5 & 15U),
                           std::chrono::day(date & 31U));
  const hours hour(time >> 11);
  const minutes minute(time >> 5 & 63);
  const std::chrono::seconds second(2 * (time & 31));
  if (!day.ok() || hour >= hours(24) || minute >= minutes(60) || second >= std::chrono::seconds(60))
    return false;
  const auto point = sys_days(day).time_since_epoch() + hour + minute + second;
  *seconds = static_cast<time_t>(std::chrono::seconds(point).count());
  return true;
}

}  // namespace

LocalTree::~LocalTree() { Leave(); }

void LocalTree::Leave() {
  if (folder_ != kNoFileHandle) close(folder_);
  folder_ = kNoFileHandle;
  entered_.clear();
}

// The current directory itself needs no handle.
bool LocalTree::Enter(const std::string& folder) {
  if (folder == entered_) return true;
  Leave();
  std::string name;
  for (std::size_t at = 0; at < folder.size();) {
    const std::size_t end = folder.find('/', at);
    name.assign(folder, at, end - at);
    const int next = OpenFolder(folder_ == kNoFileHandle ? AT_FDCWD : folder_, name.c_str());
    if (folder_ != kNoFileHandle) close(folder_);
    folder_ = next;
    if (next < 0) return false;
    at = end + 1;
  }
  entered_ = folder;
  return true;
}

// Without waiting for the other end of a pipe that stands there.
FileHandle LocalTree::Create(const std::string& name) const {
  const int folder = folder_ == kNoFileHandle ? AT_FDCWD : folder_;
  const int file = AboveStandardStreams(
      openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666));
  if (file < 0 || Empty(file, spared_)) return file;
  close(file);
  return kNoFileHandle;
}

bool LocalTree::SetLastWrite(const std::string& name, std::uint16_t date,
                             std::uint16_t time) const {
  timespec times[2] = {};
  times[0].tv_nsec = UTIME_OMIT;
  if (!ToSeconds(date, time, &times[1].tv_sec)) return false;
  const int folder = folder_ == kNoFileHandle ? AT_FDCWD : folder_;
  return utimensat(folder, name.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0;
}

}  // namespace zeapi::platform
