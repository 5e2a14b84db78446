#pragma once
// The simulated host: opens a song, shows its windows, loads bundles and draws frames.

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/arrange/ArrangeWindow.h"
#include "host/kit/HostOptions.h"
#include "host/liveloops/LiveLoopsWindow.h"
#include "host/mixer/MixerWindow.h"
#include "host/sequencer/StepSequencerPanel.h"
#include "host/song/Song.h"

namespace host {

enum class WindowKind {
  kMixer,
  kArrange,
  kStepSequencer,
  kLiveLoops,
  // More windows of the document, with panes open.
  kLibrary,
  kLoopBrowser,
  kLists,
  kInspector,
  kOverview
};
inline constexpr WindowKind kWindowKinds[] = {
    WindowKind::kMixer,     WindowKind::kArrange,   WindowKind::kStepSequencer,
    WindowKind::kLiveLoops, WindowKind::kLibrary,   WindowKind::kLoopBrowser,
    WindowKind::kLists,     WindowKind::kInspector, WindowKind::kOverview};

/// One host process. There is never more than one at a time.
class Application {
 public:
  explicit Application(HostOptions options);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// Loads a bundle's code and brings it up: makes one `LoaderClass` and sends it `initialize`.
  /// False, with `error` set, when the code cannot be loaded or has no such class.
  bool loadBundle(const std::string& path, std::string& error);

  /// Opens a song in its mixer, arrange, step sequencer and Live Loops windows, and tells everybody that its
  /// document is open.
  void open(Song song);
  /// Opens another window of the open song, unless it is open.
  void openWindow(WindowKind kind);
  [[nodiscard]] bool isOpen(WindowKind kind) const;

  /// One turn of the event loop: windows update, presentations follow.
  void runFrame();

  /// Runs frames, what is queued and redraws of a window until nothing is due any more; delayed work is waited
  /// for by setting the clock forward, which stands still from then on. A picture that is drawn next is final.
  void settle(WindowKind kind);

  /// Draws a window, title bar and all, into a new bitmap of the host's scale.
  [[nodiscard]] cocoa::Ref<NSBitmapImageRep> draw(WindowKind kind);
  /// The same into a bitmap that an earlier call made, as a screen keeps its backing store.
  void draw(WindowKind kind, NSBitmapImageRep bitmap);

  /// The window, which must be open.
  [[nodiscard]] NSWindow window(WindowKind kind) const;
  [[nodiscard]] MixerWindow& mixer() { return *mixer_; }
  [[nodiscard]] ArrangeWindow& arrange() { return *arrange_; }
  [[nodiscard]] const Song& song() const { return song_; }

 private:
  HostOptions options_;
  Song song_;
  std::unique_ptr<MixerWindow> mixer_;
  std::unique_ptr<ArrangeWindow> arrange_;
  std::unique_ptr<StepSequencerPanel> sequencer_;
  std::unique_ptr<LiveLoopsWindow> liveLoops_;
  std::map<WindowKind, std::unique_ptr<ArrangeWindow>> documents_;  // those with panes
};

}  // namespace host
