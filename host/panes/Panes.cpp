#include "host/app/Views.h"
#include "host/mixer/StripBuilder.h"
#include "host/panes/Browsers.h"
#include "host/panes/KitLists.h"
#include "host/panes/KitViews.h"
#include "host/panes/Library.h"
#include "host/panes/Lists.h"
#include "host/panes/LoopBrowser.h"
#include "host/panes/Pane.h"

namespace host {
namespace {

using namespace cocoa;

class EmptyPane : public Pane {
 public:
  explicit EmptyPane(const PanePlace& place)
      : view_(Ref<NSView>::adopt(
            NSView(call<"initWithFrame:", id>(call<"alloc", id>(classNamed("MAView")), place.frame)))) {}
  [[nodiscard]] NSView view() const override { return view_; }

 private:
  Ref<NSView> view_;
};

}  // namespace

std::unique_ptr<Pane> makePane(PaneKind kind, const PanePlace& place) {
  switch (kind) {
    case PaneKind::kLibrary:
      return makeLibraryPane(place);
    case PaneKind::kBrowsers:
      return makeBrowsersPane(place);
    case PaneKind::kLists:
      return makeListsPane(place);
    case PaneKind::kLoopBrowser:
      return makeLoopBrowserPane(place);
    default:
      return std::make_unique<EmptyPane>(place);
  }
}

double paneExtent(PaneKind kind, const Song& song) {
  switch (kind) {
    case PaneKind::kLibrary:
      return 260;
    case PaneKind::kInspector:
      return 210;
    case PaneKind::kBrowsers:
    case PaneKind::kLists:
      return 300;
    case PaneKind::kLoopBrowser:
      return 340;
    case PaneKind::kMixer:
      break;
  }
  return stripHeight(song) + 48;
}

void definePaneClasses() {
  defineKitViews();
  defineKitLists();
  defineLibraryClasses();
  defineBrowserClasses();
  defineLoopBrowserClasses();
  defineListsClasses();
}

}  // namespace host
