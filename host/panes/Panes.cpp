#include "host/panes/Panes.h"
#include "host/kit/KitLists.h"
#include "host/kit/KitViews.h"
#include "host/panes/Browsers.h"
#include "host/panes/Inspector.h"
#include "host/panes/Library.h"
#include "host/panes/Lists.h"
#include "host/panes/LoopBrowser.h"
#include "host/panes/MixerPane.h"

namespace host {
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
    case PaneKind::kInspector:
      return makeInspectorPane(place);
    case PaneKind::kMixer:
      break;
  }
  return makeMixerPane(place);
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
  return mixerPaneHeight(song);
}

void definePaneClasses() {
  defineInspectorClasses();
  defineKitViews();
  defineKitLists();
  defineLibraryClasses();
  defineBrowserClasses();
  defineLoopBrowserClasses();
  defineListsClasses();
}

}  // namespace host
