#pragma once

#include <memory>
#include <vector>

#include "cocoa/AppKit.h"
#include "host/arrange/ArrangeModel.h"
#include "host/kit/HostOptions.h"
#include "host/panes/Panes.h"

namespace host {

/// The window of a song's document: its tracks, arranged in time, and the panes beside them.
class ArrangeWindow {
 public:
  /// `song` must outlive the window.
  ArrangeWindow(Song& song, const HostOptions& options, const DocumentLayout& layout = {});
  ~ArrangeWindow();
  ArrangeWindow(const ArrangeWindow&) = delete;
  ArrangeWindow& operator=(const ArrangeWindow&) = delete;

  [[nodiscard]] NSWindow window() const { return window_; }
  [[nodiscard]] NSView arrangeView() const { return arrange_; }
  [[nodiscard]] NSView ruler() const;
  [[nodiscard]] NSView headers() const;
  [[nodiscard]] NSView contents() const;
  [[nodiscard]] NSObject document() const { return document_; }
  [[nodiscard]] NSObject fenster() const { return fenster_; }
  void updatePresentation() const;

  /// Points a bar; within the bounds that a song's zoom has.
  void setZoom(double zoom);
  /// How far the contents are scrolled: to the right and down, as far as there is something to see.
  void setScroll(double right, double down = 0);
  /// Shows the song as it is now, after a change from outside.
  void songChanged();

  /// The primary mouse button at a place in the window's base coordinates.
  void press(CGPoint point);
  void drag(CGPoint point);
  void release(CGPoint point);

  /// Opens the editor for a track's name; false for a track that is not there.
  bool beginRename(std::size_t track);
  /// Closes it, and gives the track the text that stands in it.
  void endRename();
  [[nodiscard]] NSTextField nameEditor() const { return nameEditor_; }

 private:
  void buildViews(const HostOptions& options, const DocumentLayout& layout);
  /// Lays the panes into the split view; what is left of its bounds is for the tracks.
  CGRect addPanes(NSView split, const HostOptions& options, const DocumentLayout& layout);
  void sendMouse(NSEventType type, CGPoint point, NSUInteger buttons);

  ArrangeModel model_;
  cocoa::Ref<NSWindow> window_;
  cocoa::Ref<NSObject> controller_;
  cocoa::Ref<NSView> arrange_;
  std::vector<std::unique_ptr<Pane>> panes_;
  cocoa::Ref<NSObject> fenster_;
  cocoa::Ref<NSObject> song_;
  cocoa::Ref<NSObject> document_;
  cocoa::Ref<NSObject> docManager_;
  cocoa::Ref<NSTextField> nameEditor_;
  std::size_t renamedTrack_ = 0;
};

/// Defines the classes of the arrange window, as a host of these options has them.
void defineArrangeClasses(const HostOptions& options);

}  // namespace host
