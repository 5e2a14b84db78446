#include "plugin/arrange/VLRGridSettingsReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "plugin/files/AtomicWrite.h"
#include "plugin/plist/PropertyListReader.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr const char* kQueueLabel = "com.velura.plugin.settingswatcher";
constexpr double kRetryDelay = 2;  // seconds
constexpr unsigned long kWatchedEvents =
    DISPATCH_VNODE_DELETE | DISPATCH_VNODE_WRITE | DISPATCH_VNODE_EXTEND | DISPATCH_VNODE_RENAME;
constexpr unsigned long kOtherFileNow = DISPATCH_VNODE_DELETE | DISPATCH_VNODE_RENAME;

/// "" when the user has no Application Support folder, which stays where it is as long as the process lives.
std::string pathBeside(const char* name) {
  static const std::string support = applicationSupportFolder();
  return support.empty() ? support : support + "/Velura/" + name;
}
std::string settingsPath() { return pathBeside("grid-settings.plist"); }

Ref<NSDictionary> dictionaryAt(const std::string& path) {
  if (path.empty()) return {};
  return as<NSDictionary>(readPropertyList(path.c_str()));
}

/// Whether a path still leads to the file that was opened there.
bool leadsTo(const std::string& path, int descriptor) {
  struct stat there {};
  struct stat opened {};
  return ::stat(path.c_str(), &there) == 0 && ::fstat(descriptor, &opened) == 0 && there.st_dev == opened.st_dev &&
         there.st_ino == opened.st_ino;
}

/// What the handlers of one source work on. Keeps the reader until the source is cancelled.
struct Watch {
  Ref<NSObject> reader;
  dispatch_source_t source;
  int descriptor;
};

void fileChanged(void* context) {
  const AutoreleasePool pool;
  const auto& watch = *static_cast<const Watch*>(context);
  const auto events = dispatch_source_get_data(watch.source);
  auto& reader = stateOf<VLRGridSettingsReader>(watch.reader.get());
  reader.reloadSettings();
  if ((events & kOtherFileNow) != 0) reader.armWatchSource();
}

void watchCancelled(void* context) {
  const AutoreleasePool pool;
  const std::unique_ptr<const Watch> watch(static_cast<Watch*>(context));
  ::close(watch->descriptor);
}

NSObject sharedReader(Class /*self*/) { return NSObject(VLRGridSettingsReader::shared().self); }
BOOL isDefaultTheme(Class /*self*/) { return BOOL(isDefaultThemeSelected()); }

}  // namespace

VLRGridSettingsReader& VLRGridSettingsReader::shared() {
  static VLRGridSettingsReader& reader =
      stateOf<VLRGridSettingsReader>(call<"init", id>(call<"alloc", id>(DefinedClass<VLRGridSettingsReader>::cls)));
  return reader;
}

id VLRGridSettingsReader::init() {
  superSend<VLRGridSettingsReader, id>(self, selector<"init">());
  watchQueue_ = dispatch_queue_create(kQueueLabel, DISPATCH_QUEUE_SERIAL);
  return self;
}

VLRGridSettingsReader::~VLRGridSettingsReader() {
  tearDownSource();
  if (watchQueue_ != nullptr) dispatch_release(watchQueue_);
}

void VLRGridSettingsReader::startWatching() {
  if (watching_) return;
  watching_ = true;
  reloadSettings();
  armWatchSource();
}

void VLRGridSettingsReader::reloadSettings() {
  const VLRGridSettings settings = readSettingsFromDisk();
  if (NSThread::isMainThread()) return apply(settings);
  async(dispatch_get_main_queue(), [settings, reader = Ref<NSObject>(NSObject(self))] {
    stateOf<VLRGridSettingsReader>(reader.get()).apply(settings);
  });
}

void VLRGridSettingsReader::apply(const VLRGridSettings& settings) {
  settings_ = settings;
  NSNotificationCenter::defaultCenter().postNotificationName(literal<kGridSettingsDidChange>(), NSObject(self));
}

NSString VLRGridSettingsReader::settingsPlistPath() const {
  const std::string path = settingsPath();
  return path.empty() ? NSString() : string(path);
}

VLRGridSettings VLRGridSettingsReader::readSettingsFromDisk() const {
  const AutoreleasePool pool;
  VLRGridSettings settings = gridSettingsFrom(dictionaryAt(settingsPath()));
  if (isDefaultThemeSelected()) settings.enabled = settings.markerBandsEnabled = false;
  return settings;
}

void VLRGridSettingsReader::armWatchSource() {
  const AutoreleasePool pool;
  tearDownSource();
  const std::string path = settingsPath();
  if (path.empty()) return;
  watchFd_ = ::open(path.c_str(), O_EVTONLY | O_NONBLOCK | O_CLOEXEC);
  if (watchFd_ < 0) {
    watchFd_ = -1;
    asyncAfter(kRetryDelay, watchQueue_, [reader = Ref<NSObject>(NSObject(self))] {
      stateOf<VLRGridSettingsReader>(reader.get()).armWatchSource();
    });
    return;
  }
  watchSource_ = dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<std::uintptr_t>(watchFd_),
                                        kWatchedEvents, watchQueue_);
  if (watchSource_ == nullptr) {
    ::close(watchFd_);
    watchFd_ = -1;
    return;
  }
  dispatch_set_context(watchSource_, new Watch{NSObject(self), watchSource_, watchFd_});
  dispatch_source_set_event_handler_f(watchSource_, fileChanged);
  dispatch_source_set_cancel_handler_f(watchSource_, watchCancelled);
  dispatch_resume(watchSource_);
  // Replaced between its being opened and its being watched: nobody will tell of that. From here on the source's
  // handlers run, which may arm again: only their own queue can look.
  async(watchQueue_, [path, reader = Ref<NSObject>(NSObject(self))] {
    auto& state = stateOf<VLRGridSettingsReader>(reader.get());
    if (state.watchFd_ < 0 || leadsTo(path, state.watchFd_)) return;
    state.reloadSettings();
    state.armWatchSource();
  });
}

void VLRGridSettingsReader::tearDownSource() {
  if (watchSource_ != nullptr) {
    dispatch_source_cancel(watchSource_);
    dispatch_release(watchSource_);
    watchSource_ = nullptr;
  } else if (watchFd_ >= 0) {
    ::close(watchFd_);
  }
  watchFd_ = -1;
}

bool isDefaultThemeSelected() {
  const Ref<NSDictionary> state = dictionaryAt(pathBeside("theme-state.plist"));
  const NSObject selected = state->objectForKey(literal<"isDefaultTheme">());
  return respondsTo<"boolValue">(selected) && callBool<"boolValue">(selected.object);
}

void defineVLRGridSettingsReader() {
  if (DefinedClass<VLRGridSettingsReader>::cls != nullptr) return;
  ClassDefinition<VLRGridSettingsReader>("VLRGridSettingsReader", "NSObject")
      .classMethod<"sharedReader", sharedReader>()
      .classMethod<"_isDefaultTheme", isDefaultTheme>()
      .method<"init", &VLRGridSettingsReader::init>()
      .method<"startWatching", &VLRGridSettingsReader::startWatching>()
      .method<"reloadSettings", &VLRGridSettingsReader::reloadSettings>()
      .method<"settings", &VLRGridSettingsReader::settings>()
      .method<"_settingsPlistPath", &VLRGridSettingsReader::settingsPlistPath>()
      .method<"_readSettingsFromDisk", &VLRGridSettingsReader::readSettingsFromDisk>()
      .method<"_armWatchSource", &VLRGridSettingsReader::armWatchSource>()
      .method<"_tearDownSource", &VLRGridSettingsReader::tearDownSource>()
      .registered();
}

}  // namespace velura
