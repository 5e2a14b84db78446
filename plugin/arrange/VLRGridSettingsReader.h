#pragma once
// The class `VLRGridSettingsReader`: the grid settings in force. It watches the settings file and tells the
// arrange views to redraw.

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "cocoa/Dispatch.h"
#include "plugin/language/VLRGridSettings.h"

namespace velura {

/// Posted on the main thread, the reader as its object, after the settings were read anew.
inline constexpr cocoa::FixedString kGridSettingsDidChange{"VLRGridSettingsDidChangeNotification"};

struct VLRGridSettingsReader : cocoa::ObjectState {
  /// The one instance, made on first use and kept for the life of the process.
  static VLRGridSettingsReader& shared();

  id init();
  VLRGridSettingsReader() = default;
  VLRGridSettingsReader(const VLRGridSettingsReader&) = delete;
  VLRGridSettingsReader& operator=(const VLRGridSettingsReader&) = delete;
  ~VLRGridSettingsReader();

  /// Reads the settings and watches the file from now on, for the life of the process.
  void startWatching();
  /// Reads the file on this thread. The settings change, and the notification is posted, on the main thread:
  /// at once if this is it, else later.
  void reloadSettings();
  /// Main thread only.
  [[nodiscard]] VLRGridSettings settings() const { return settings_; }

  /// nil when the user has no Application Support folder.
  [[nodiscard]] NSString settingsPlistPath() const;
  /// What the files say now: the settings file, and whether the default theme is selected, which turns grid
  /// and bands off.
  [[nodiscard]] VLRGridSettings readSettingsFromDisk() const;

  /// Watches the file that stands at the settings path now. While there is none, tries again every two seconds.
  void armWatchSource();
  void tearDownSource();

 private:
  void apply(const VLRGridSettings& settings);

  dispatch_source_t watchSource_ = nullptr;
  dispatch_queue_t watchQueue_ = nullptr;
  std::int32_t watchFd_ = -1;
  VLRGridSettings settings_;
  bool watching_ = false;
};

/// Whether the theme state file says that the user has the default theme selected.
bool isDefaultThemeSelected();

/// Registers the class.
void defineVLRGridSettingsReader();

}  // namespace velura
