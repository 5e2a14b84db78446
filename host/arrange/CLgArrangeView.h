#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/arrange/ArrangeModel.h"

namespace host {

/// Holds the ruler with the global tracks, the column of track headers and the contents, and paints what lies
/// behind them.
struct CLgArrangeView : cocoa::ObjectState {
  cocoa::Ref<NSObject> fenster;

  /// What the sections answer of the song that they belong to.
  struct Belonging {
    NSObject fenster;
    NSObject docManager;
    NSObject song;
  };
  void build(ArrangeModel& shown, const Belonging& belonging);
  void closed();

  NSView sectionView(NSInteger section);
  [[nodiscard]] NSView headers() const { return headers_; }
  [[nodiscard]] NSView contents() const { return contents_; }
  [[nodiscard]] NSView ruler() const { return ruler_; }

  /// Gives the sections their places, at the song's zoom and scroll and at most as far down as the tracks
  /// reach. Everything is to be drawn anew.
  void layOut(double scrollDown);
  [[nodiscard]] double scrolledDown() const { return scrolledDown_; }
  /// The song has changed, though not in its size.
  void contentsChanged();

  void drawRect(CGRect dirty);

 private:
  NSView addSection(const char* className, NSInteger section, CGRect area, const Belonging& belonging);
  void paintHeaders(CGRect dirty) const;

  ArrangeModel* model_ = nullptr;  // null once the window is closed
  cocoa::Ref<NSView> headers_;     // stay when somebody takes them out of the window, like the next two
  cocoa::Ref<NSView> contents_;
  cocoa::Ref<NSView> ruler_;
  double scrolledDown_ = 0;
};

void defineCLgArrangeView();

}  // namespace host
