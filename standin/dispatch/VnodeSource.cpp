// Sources that tell what happens to a file, over inotify. A descriptor is watched by the name that the
// process itself has for it, so that it is the file that counts and not what its path leads to.

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <asio/posix/stream_descriptor.hpp>
#include <climits>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "standin/dispatch/Dispatch.h"
#include "standin/dispatch/Worker.h"

struct dispatch_source_type_s {};

namespace standin {

namespace {

class VnodeSource;

/// The watches of the process. There is one for each file, however many sources there are for it.
class FileWatches {
 public:
  FileWatches() { wait(); }

  bool add(VnodeSource& source);
  void remove(VnodeSource& source);

 private:
  using Sources = std::vector<VnodeSource*>;
  using Told = std::vector<Retained<VnodeSource>>;

  void wait() {
    if (!descriptor_.is_open()) return;
    descriptor_.async_wait(asio::posix::descriptor_base::wait_read, [this](asio::error_code error) {
      if (error) return;
      readEvents();
      wait();
    });
  }
  void readEvents();
  /// Sources are kept in `told` until the lock was left: giving one up may remove its watch.
  void tellAll(Told& told);
  void tell(const Sources& sources, const inotify_event& event, Told& told);

  std::mutex mutex_;
  std::unordered_map<int, Sources> sources_;  // by watch
  asio::posix::stream_descriptor descriptor_{workerLoop(), inotify_init1(IN_NONBLOCK | IN_CLOEXEC)};
};

/// Null where the system gives none.
FileWatches* fileWatches() {
  static auto* watches = []() -> FileWatches* {
    try {
      return new FileWatches();
    } catch (...) {
      return nullptr;
    }
  }();
  return watches;
}

class VnodeSource : public DispatchObject {
 public:
  VnodeSource(int file, std::uintptr_t mask, DispatchQueue* queue) : file_(file), mask_(mask), queue_(queue) {}
  ~VnodeSource() override {
    if (FileWatches* watches = fileWatches()) watches->remove(*this);
  }

  bool start() {
    struct stat now {};
    if (fstat(file_, &now) != 0 || fileWatches() == nullptr) return false;
    size_ = now.st_size;
    links_ = now.st_nlink;
    return fileWatches()->add(*this);
  }
  [[nodiscard]] int file() const { return file_; }

  void setEventHandler(dispatch_function_t handler) {
    const std::lock_guard lock(mutex_);
    eventHandler_ = handler;
  }
  void setCancelHandler(dispatch_function_t handler) {
    const std::lock_guard lock(mutex_);
    cancelHandler_ = handler;
  }
  [[nodiscard]] std::uintptr_t data() const { return data_.load(); }

  void resume() override {
    const std::lock_guard lock(mutex_);
    resumed_ = true;
    postWork();
  }

  void cancel() {
    fileWatches()->remove(*this);  // before the cancel handler may close the file
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
    postWork();
  }

  /// Called under the lock of the watches.
  void happened(const inotify_event& event) {
    const std::uintptr_t events = eventsOf(event) & mask_;
    const std::lock_guard lock(mutex_);
    if (events == 0 || cancelled_) return;
    pending_ |= events;
    postWork();
  }

  int watch = -1;  // kept by the watches

 private:
  std::uintptr_t eventsOf(const inotify_event& event);

  /// One piece of work is on its way at a time. It does what is to be done when it runs.
  void postWork() {
    const bool due = cancelled_ ? !cancelTold_ : pending_ != 0;
    if (!resumed_ || posted_ || !due) return;
    posted_ = true;
    queue_->post([source = Retained<VnodeSource>(this)] { source->work(); });
  }

  void work() {
    dispatch_function_t handler = nullptr;
    {
      const std::lock_guard lock(mutex_);
      posted_ = false;
      handler = cancelled_ ? cancelHandler_ : eventHandler_;
      cancelTold_ = cancelled_;
      data_ = std::exchange(pending_, 0);
    }
    if (handler != nullptr) handler(context());
  }

  const int file_;
  const std::uintptr_t mask_;
  const Retained<DispatchQueue> queue_;
  off_t size_ = 0;
  nlink_t links_ = 0;
  std::atomic<std::uintptr_t> data_{0};

  std::mutex mutex_;
  dispatch_function_t eventHandler_ = nullptr;
  dispatch_function_t cancelHandler_ = nullptr;
  std::uintptr_t pending_ = 0;
  bool resumed_ = false;
  bool posted_ = false;
  bool cancelled_ = false;
  bool cancelTold_ = false;
};

constexpr std::uint32_t kInFolder = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::uint32_t kWatched = IN_MODIFY | IN_ATTRIB | IN_MOVE_SELF | IN_DELETE_SELF | kInFolder;

/// As long as a descriptor is open, a deleted or replaced file only loses its last link.
std::uintptr_t VnodeSource::eventsOf(const inotify_event& event) {
  const std::uint32_t mask = event.mask;
  if ((mask & kInFolder) != 0) return DISPATCH_VNODE_WRITE;
  if (event.len > 0) return 0;  // of a file in the folder
  struct stat now {};
  const bool known = fstat(file_, &now) == 0;
  const off_t size = known ? now.st_size : size_;
  std::uintptr_t events = 0;
  if ((mask & IN_MODIFY) != 0) events |= DISPATCH_VNODE_WRITE | (size > size_ ? DISPATCH_VNODE_EXTEND : 0);
  if ((mask & IN_MOVE_SELF) != 0) events |= DISPATCH_VNODE_RENAME;
  if ((mask & IN_UNMOUNT) != 0) events |= DISPATCH_VNODE_REVOKE;
  if ((mask & IN_DELETE_SELF) != 0) events |= DISPATCH_VNODE_DELETE;
  if ((mask & IN_ATTRIB) != 0) {
    const nlink_t links = known ? now.st_nlink : links_;
    const bool lost = links == 0 && links_ != 0;
    events |= lost ? DISPATCH_VNODE_DELETE : links != links_ ? DISPATCH_VNODE_LINK : DISPATCH_VNODE_ATTRIB;
    links_ = links;
  }
  size_ = size;
  return events;
}

bool FileWatches::add(VnodeSource& source) {
  Told told;
  const std::lock_guard lock(mutex_);
  tellAll(told);  // what happened before concerns the earlier sources only
  const std::string name = "/proc/self/fd/" + std::to_string(source.file());
  source.watch = inotify_add_watch(descriptor_.native_handle(), name.c_str(), kWatched);
  if (source.watch < 0) return false;
  sources_[source.watch].push_back(&source);
  return true;
}

void FileWatches::remove(VnodeSource& source) {
  const std::lock_guard lock(mutex_);
  const auto found = sources_.find(std::exchange(source.watch, -1));
  if (found == sources_.end()) return;
  std::erase(found->second, &source);
  if (!found->second.empty()) return;
  inotify_rm_watch(descriptor_.native_handle(), found->first);
  sources_.erase(found);
}

void FileWatches::readEvents() {
  Told told;
  const std::lock_guard lock(mutex_);
  tellAll(told);
}

void FileWatches::tellAll(Told& told) {
  alignas(inotify_event) char buffer[16 * (sizeof(inotify_event) + NAME_MAX + 1)];
  for (;;) {
    const ssize_t count = read(descriptor_.native_handle(), buffer, sizeof buffer);
    if (count <= 0) return;
    for (const char* at = buffer; at < buffer + count;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(at);
      at += sizeof event + event.len;
      if ((event.mask & IN_Q_OVERFLOW) != 0) {
        // Some events were lost: anything may have happened to any file.
        inotify_event any{};
        any.mask = IN_MODIFY | IN_ATTRIB;
        for (const auto& [watch, sources] : sources_) tell(sources, any, told);
      } else if (const auto found = sources_.find(event.wd); found != sources_.end()) {
        tell(found->second, event, told);
      }
    }
  }
}

void FileWatches::tell(const Sources& sources, const inotify_event& event, Told& told) {
  for (VnodeSource* source : sources) {
    if (!source->retainIfAlive()) continue;
    told.push_back(Retained<VnodeSource>::adopt(source));
    source->happened(event);
  }
}

VnodeSource* sourceBehind(dispatch_source_t handle) { return static_cast<VnodeSource*>(objectBehind(handle)); }

}  // namespace

}  // namespace standin

using namespace standin;

extern "C" {

const dispatch_source_type_s _dispatch_source_type_vnode{};

dispatch_source_t dispatch_source_create(dispatch_source_type_t type, std::uintptr_t handle, std::uintptr_t mask,
                                         dispatch_queue_t queue) {
  if (type != DISPATCH_SOURCE_TYPE_VNODE || queue == nullptr || handle > INT_MAX) return nullptr;
  auto* source = new VnodeSource(static_cast<int>(handle), mask, queueBehind(queue));
  if (!source->start()) {
    source->release();
    return nullptr;
  }
  return reinterpret_cast<dispatch_source_t>(static_cast<DispatchObject*>(source));
}

void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t handler) {
  if (source != nullptr) sourceBehind(source)->setEventHandler(handler);
}
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t handler) {
  if (source != nullptr) sourceBehind(source)->setCancelHandler(handler);
}
std::uintptr_t dispatch_source_get_data(dispatch_source_t source) {
  return source == nullptr ? 0 : sourceBehind(source)->data();
}
void dispatch_source_cancel(dispatch_source_t source) {
  if (source != nullptr) sourceBehind(source)->cancel();
}
}
