#include "host/panes/Lists.h"

#include <algorithm>
#include <cmath>

#include "cocoa/Call.h"
#include "host/kit/KitLists.h"
#include "host/kit/KitViews.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kTabsHeight = 30;
constexpr double kBarHeight = 24;

/// Tabs above everything that lies below them.
struct CLgListAreaTabView : ObjectState {
  void drawRect(CGRect /*dirty*/) {
    CGRect rest = NSView(self).bounds();
    drawTabs(takeTop(rest, kTabsHeight), {"Event", "Marker", "Tempo", "Signature"}, 0);
  }
};

// ---- The note pad -------------------------------------------------------------------------------------

/// A sheet with text on it. Its layer has its background's colour.
struct NotePadBackgroundView : ObjectState {
  std::vector<std::string> lines;

  NSColor backgroundColor() { return paletteColor(Palette::kNotePad); }
  void update() {
    const auto color = call<"backgroundColor", NSColor>(self);
    NSView(self).layer().setBackgroundColor(color.CGColor());
    NSView(self).setNeedsDisplay(true);
  }
  void drawRect(CGRect /*dirty*/) {
    constexpr double kLine = 17;
    CGRect rest = NSView(self).bounds().insetBy(10, 7);
    const Painter painter = currentPainter();
    for (std::size_t i = 0; i < lines.size() && rest.size.height >= kLine; ++i) {
      painter.text(lines[i], takeTop(rest, kLine), paletteColor(Palette::kNotePadText),
                   {.size = 11, .weight = i == 0 ? 0.3 : 0, .alignment = TextAlignment::kLeft});
    }
  }
};

/// Which tracks have notes.
struct CLgDocwNotesListView : ObjectState {
  std::vector<std::string> tracks;

  void drawRect(CGRect dirty) {
    constexpr double kRow = 20;
    constexpr double kRight = 74;  // the buttons
    const Painter painter = currentPainter();
    const CGRect bounds = NSView(self).bounds();
    painter.fill(dirty, paletteColor(Palette::kNotesList));
    CGRect rest = CGRectMake(0, 0, bounds.size.width - kRight, bounds.size.height);
    for (std::size_t i = 0; i < tracks.size() && rest.size.height >= kRow; ++i) {
      const CGRect row = takeTop(rest, kRow);
      if (i == 0) painter.fill(row, paletteColor(Palette::kTabOff));
      painter.text(tracks[i], row.insetBy(10, 0), paletteColor(i == 0 ? Palette::kListText : Palette::kListTextDim),
                   {.size = 11, .alignment = TextAlignment::kLeft});
    }
  }
};

/// A small button of the note pad, drawn as one of its strip.
struct CLgNotePadButton : ObjectState {
  std::string sign;

  void drawRect(CGRect /*dirty*/) {
    const CGRect bounds = NSView(self).bounds();
    const Painter painter = currentPainter();
    painter.fillRounded(bounds, 4, paletteColor(Palette::kNotesButton));
    painter.text(sign, bounds, paletteColor(Palette::kListText), {.size = 11, .weight = 0.23});
  }
};

// ---- What the song says -------------------------------------------------------------------------------

std::string barText(double bar, int beatsPerBar) {
  const double whole = std::floor(bar);
  const double beat = std::floor((bar - whole) * beatsPerBar);
  return std::to_string(static_cast<long>(whole)) + " " + std::to_string(static_cast<long>(beat) + 1) + " 1 1";
}
std::string lengthText(double bars, int beatsPerBar) {
  const double whole = std::floor(bars);
  const double beat = std::floor((bars - whole) * beatsPerBar);
  return std::to_string(static_cast<long>(whole)) + " " + std::to_string(static_cast<long>(beat)) + " 0 0";
}

/// All regions, in the order of time.
std::vector<ListRow> eventRows(const Song& song) {
  struct Event {
    const Region* region;
    const Track* track;
  };
  std::vector<Event> events;
  for (const Track& track : song.tracks) {
    for (const Region& region : track.regions) events.push_back({&region, &track});
  }
  std::stable_sort(events.begin(), events.end(),
                   [](const Event& a, const Event& b) { return a.region->start < b.region->start; });
  constexpr std::size_t kMostRows = 2'000;
  std::vector<ListRow> rows;
  const int beats = song.arrange.beatsPerBar;
  for (std::size_t i = 0; i < std::min(events.size(), kMostRows); ++i) {
    const auto& [region, track] = events[i];
    rows.push_back({{barText(region->start, beats), region->name, track->name, lengthText(region->length, beats)}});
  }
  return rows;
}

std::vector<std::string> noteLines(const Song& song) {
  std::vector<std::string> lines{song.title};
  for (const Track& track : song.tracks) {
    if (!track.notes.empty()) lines.push_back(track.name + ": " + track.notes);
  }
  for (const char* line :
       {"Chorus 2: double the lead, pan wide", "Bridge: half-time drums, open the pad", "Ask Mara about the outro"}) {
    lines.emplace_back(line);
  }
  return lines;
}

std::vector<std::string> notedTracks(const Song& song) {
  std::vector<std::string> names{"Project"};
  for (const Track& track : song.tracks) {
    if (!track.notes.empty()) names.push_back(track.name);
  }
  return names;
}

// ---- The pane -----------------------------------------------------------------------------------------

class ListsPane : public Pane {
 public:
  explicit ListsPane(const PanePlace& place)
      : view_(newView("CLgListAreaTabView", place.frame)),
        events_(newListController("CLgEventListController", eventRows(place.song))) {
    view_->layer().setBackgroundColor(paletteColor(Palette::kPaneBackground).CGColor());
    CGRect rest = view_->bounds();
    takeTop(rest, kTabsHeight);
    view_->addSubview(newControlsView(takeTop(rest, kBarHeight), 2, "Edit    Functions    View    Filter"));
    addEvents(takeTop(rest, std::floor(rest.size.height * 0.6)));
    view_->addSubview(newControlsView(takeTop(rest, kBarHeight), 1, "Note Pads"));
    addNotesList(takeTop(rest, 66), place.song);
    rest.size.height -= 1;
    addNotePad(rest, place.song);
  }
  [[nodiscard]] NSView view() const override { return view_; }

 private:
  void addEvents(CGRect place) const {
    const double name = (place.size.width - 84 - 62) / 2;
    const Ref<NSTableView> events =
        addList(view_, place,
                {.className = "CLgEventListTableView",
                 .gridStyleMask = NSTableViewSolidVerticalGridLineMask | NSTableViewSolidHorizontalGridLineMask,
                 .columns = {{"Position", 84, "MATextFieldCell"},
                             {"Name", name, "MATextFieldCell"},
                             {"Track", name, "MATextFieldCell"},
                             {"Length", 62, "MATextFieldCell"}},
                 .rowHeight = 18},
                events_);
    events->selectRow(2);
  }
  void addNotesList(CGRect place, const Song& song) const {
    const Ref<NSView> list = newView("CLgDocwNotesListView", place);
    stateOf<CLgDocwNotesListView>(list.get()).tracks = notedTracks(song);
    view_->addSubview(list);
    const Ref<NSView> decoration =
        newView("NotePadDecorationView", CGRectMake(place.size.width - 74, 0, 74, place.size.height));
    list->addSubview(decoration);
    constexpr const char* kSigns[] = {"B", "I", "A"};
    for (std::size_t i = 0; i < std::size(kSigns); ++i) {
      const Ref<NSView> button =
          newView("CLgNotePadButton", CGRectMake(6 + 22 * static_cast<double>(i), place.size.height / 2 - 9, 19, 18));
      stateOf<CLgNotePadButton>(button.get()).sign = kSigns[i];
      decoration->addSubview(button);
    }
  }
  void addNotePad(CGRect place, const Song& song) const {
    const Ref<NSView> pad = newView("NotePadBackgroundView", place);
    auto& state = stateOf<NotePadBackgroundView>(pad.get());
    state.lines = noteLines(song);
    view_->addSubview(pad);
    pad->setWantsLayer(true);
    state.update();
  }

  Ref<NSView> view_;
  Ref<NSObject> events_;
};

}  // namespace

std::unique_ptr<Pane> makeListsPane(const PanePlace& place) { return std::make_unique<ListsPane>(place); }

void defineListsClasses() {
  definePlainClass<"CLgEventListTableView">("MAKitTableView");
  definePlainClass<"CLgEventListController">("MAKitListController");
  definePlainClass<"NotePadDecorationView">("NSView");
  ClassDefinition<CLgListAreaTabView>("CLgListAreaTabView", "MAKitView")
      .method<"drawRect:", &CLgListAreaTabView::drawRect>()
      .registered();
  ClassDefinition<NotePadBackgroundView>("NotePadBackgroundView", "NSView")
      .method<"backgroundColor", &NotePadBackgroundView::backgroundColor>()
      .method<"drawRect:", &NotePadBackgroundView::drawRect>()
      .registered();
  ClassDefinition<CLgDocwNotesListView>("CLgDocwNotesListView", "MAKitView")
      .method<"drawRect:", &CLgDocwNotesListView::drawRect>()
      .registered();
  ClassDefinition<CLgNotePadButton>("CLgNotePadButton", "NSView")
      .method<"drawRect:", &CLgNotePadButton::drawRect>()
      .registered();
}

}  // namespace host
