#include "host/panes/LoopBrowser.h"

#include <algorithm>
#include <cmath>

#include "cocoa/Call.h"
#include "host/kit/KitLists.h"
#include "host/kit/KitViews.h"

namespace host {
namespace {

using namespace cocoa;

constexpr std::size_t kToggleColumns = 4;

struct Toggle {
  const char* text;  // a second row is smaller
  bool on = false;
};
constexpr Toggle kToggles[] = {
    {"Favourites\n12"},  {"Bass\n148"},  {"Drum Kit\n231", true}, {"Percussion\n96"}, {"Piano\n64"},
    {"Electric\nPiano"}, {"Organ"},      {"Guitar\n120"},         {"Strings\n58"},    {"Brass"},
    {"Mallets"},         {"Vocals\n41"}, {"Synth\n204", true},    {"Pad\n77"},        {"Textures"},
    {"Effects\n69"},     {"Acoustic"},   {"Electronic", true},    {"Relaxed"},        {"Intense"},
};

struct Loop {
  Icon icon;
  const char* name;
  const char* beats;
  const char* key;
  const char* tempo;
};
constexpr Loop kLoops[] = {
    {Icon::kDrumLoop, "Alley Cat Beat 01", "8", "--", "104"},
    {Icon::kDrumLoop, "Alley Cat Beat 02", "8", "--", "104"},
    {Icon::kMidiLoop, "Boulevard Bass", "16", "A", "104"},
    {Icon::kAudioLoop, "Chrome Arpeggio", "32", "Am", "110"},
    {Icon::kAudioLoop, "Dashboard Glow Pad", "32", "C", "100"},
    {Icon::kDrumLoop, "Exit Ramp Shaker", "4", "--", "120"},
    {Icon::kMidiLoop, "Headlight Keys", "16", "F", "98"},
    {Icon::kAudioLoop, "Late Tunnel Riser", "16", "--", "104"},
    {Icon::kMidiLoop, "Mirror Pluck", "8", "Dm", "112"},
    {Icon::kDrumLoop, "Neon Toms Fill", "4", "--", "104"},
    {Icon::kAudioLoop, "Overpass Guitar", "16", "G", "96"},
    {Icon::kAudioLoop, "Passing Rain", "32", "--", "90"},
    {Icon::kMidiLoop, "Quartz Lead", "8", "Em", "118"},
    {Icon::kDrumLoop, "Rolling Hats 16ths", "4", "--", "104"},
    {Icon::kAudioLoop, "Skyline Choir", "32", "C", "88"},
};

// ---- Toggles ------------------------------------------------------------------------------------------

struct ToggleLook {
  Palette title;
  Palette secondRow;
};

/// One toggle. Its text is put together at each drawing, since its state and theirs may have changed.
struct MALoopBrowserSegmentedTextLabelCell : ObjectState {
  NSMutableAttributedString attributedString() {
    constexpr ToggleLook kOff{Palette::kToggleTitleOff, Palette::kToggleRowOff};
    constexpr ToggleLook kOn{Palette::kToggleTitleOn, Palette::kToggleRowOn};
    const ToggleLook& looks = NSCell(self).state() != 0 ? kOn : kOff;
    const NSString text = NSCell(self).stringValue();
    const auto styled = Ref<NSMutableAttributedString>::adopt(
        cast<NSMutableAttributedString>(call<"initWithString:attributes:", NSObject>(
            allocate<NSMutableAttributedString>(), text,
            lineAttributes(paletteColor(looks.title), {.size = 10.5, .weight = 0.1}))));
    const auto lineBreak = call<"rangeOfString:", NSRange>(text, literal<"\n">());
    if (lineBreak.length == 0) return autoreleased(styled);
    call<"removeAttribute:range:">(styled.get(), NSForegroundColorAttributeName, lineBreak);
    const NSUInteger second = lineBreak.location + lineBreak.length;
    call<"setAttributes:range:">(styled.get(), lineAttributes(paletteColor(looks.secondRow), {.size = 8.5}),
                                 NSRange{second, text.length() - second});
    return autoreleased(styled);
  }
  void drawInterior(CGRect frame, NSView) {
    const Painter painter = currentPainter();
    const CGRect body = frame.insetBy(1.5, 1.5);
    painter.fillRounded(body, 4, paletteColor(NSCell(self).state() != 0 ? Palette::kToggleOn : Palette::kToggleOff));
    const auto text = call<"attributedString", NSAttributedString>(self);
    const auto lineBreak = call<"rangeOfString:", NSRange>(text.string(), literal<"\n">());
    if (lineBreak.length == 0) return painter.text(text, body.insetBy(2, 0));
    const NSUInteger second = lineBreak.location + lineBreak.length;
    CGRect rest = body.insetBy(2, 2);
    const CGRect upper = takeTop(rest, std::ceil(rest.size.height * 0.56));
    painter.text(part(text, {0, lineBreak.location}), upper);
    painter.text(part(text, {second, text.length() - second}), rest);
  }

 private:
  static NSAttributedString part(NSAttributedString text, NSRange range) {
    return call<"attributedSubstringFromRange:", NSAttributedString>(text, range);
  }
};

/// The toggles, row by row from the top.
struct MALoopBrowserFilterSegmentedControl : ObjectState {
  std::vector<Ref<NSCell>> cells;

  void build() {
    for (const Toggle& toggle : kToggles) {
      cells.push_back(Ref<NSCell>::adopt(
          call<"init", NSCell>(call<"alloc", id>(classNamed("MALoopBrowserSegmentedTextLabelCell")))));
      cells.back()->setStringValue(string(toggle.text));
      cells.back()->setState(toggle.on ? NSControlStateValueOn : NSControlStateValueOff);
      cells.back()->setControlView(NSView(self));
    }
  }
  ~MALoopBrowserFilterSegmentedControl() {
    for (const auto& cell : cells) cell->setControlView({});
  }
  [[nodiscard]] CGRect place(std::size_t index) const {
    const CGRect bounds = NSView(self).bounds().insetBy(5, 4);
    const auto rows = static_cast<double>((cells.size() + kToggleColumns - 1) / kToggleColumns);
    const double width = bounds.size.width / static_cast<double>(kToggleColumns);
    const double height = bounds.size.height / rows;
    const auto row = static_cast<double>(index / kToggleColumns);
    return CGRectMake(bounds.minX() + width * static_cast<double>(index % kToggleColumns),
                      bounds.maxY() - height * (row + 1), width, height);
  }
  void toggle(std::size_t index) {
    if (index >= cells.size()) return;
    const NSCell cell = cells[index];
    cell.setState(cell.state() == NSControlStateValueOff ? NSControlStateValueOn : NSControlStateValueOff);
  }
  NSArray cellsArray() {
    const NSMutableArray all = NSMutableArray::array();
    for (const auto& cell : cells) all.addObject(cell);
    return all;
  }
  void drawRect(CGRect dirty) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (CGRectIntersectsRect(place(i), dirty)) cells[i]->drawWithFrame(place(i), NSView(self));
    }
  }
  void mouseDown(NSEvent event) {
    const CGPoint point = NSView(self).convertPointFromView(event.locationInWindow(), {});
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (CGRectContainsPoint(place(i), point)) toggle(i);
    }
  }
};

// ---- The pane -----------------------------------------------------------------------------------------

/// The loop browser's own controller.
struct MALoopBrowserController : ObjectState {
  Ref<NSPopUpButton> jamPackControl;
};

std::vector<ListRow> loopRows() {
  std::vector<ListRow> rows;
  for (const Loop& loop : kLoops) rows.push_back({{loop.name, loop.beats, loop.key, loop.tempo}, loop.icon});
  return rows;
}

std::vector<ListRow> folderRows() {
  return {{{"Favourites"}, Icon::kStar, {{{"Road Songs"}, Icon::kFolder}, {{"Needs a Home"}, Icon::kFolder}}},
          {{"Packs"}, Icon::kPack, {{{"Night City"}, Icon::kPack}, {{"Rooms & Halls"}, Icon::kPack}}}};
}

Ref<NSPopUpButton> helpfulPopUp(NSView parent, CGRect frame, std::initializer_list<std::string_view> items,
                                NSString helpIdentifier) {
  const Ref<NSPopUpButton> button = newPopUpButton("MAPopUpButton", frame, items);
  call<"setTitleColor:">(button.get(), paletteColor(Palette::kPaneBarText));
  call<"setQuickHelpID:">(button.get(), helpIdentifier);
  parent.addSubview(button);
  return button;
}

/// Layers come once a view is in its superview.
void giveLayer(NSView view) { view.setWantsLayer(true); }

class LoopBrowserPane : public Pane {
 public:
  explicit LoopBrowserPane(const PanePlace& place)
      : view_(newView("MALoopBrowserView", place.frame)),
        controller_(newObject("MALoopBrowserController")),
        loops_(newListController("MALoopBrowserListController", loopRows())),
        folders_(newListController("MALoopBrowserListController", folderRows())) {
    view_->layer().setBackgroundColor(paletteColor(Palette::kPaneBackground).CGColor());
    call<"setDelegate:">(view_.get(), controller_.get());
    CGRect rest = view_->bounds();
    addMenus(takeTop(rest, 32));
    addSearchField(view_, takeTop(rest, 30).insetBy(8, 4), "Search Loops", paletteColor(Palette::kListBackground),
                   paletteColor(Palette::kListTextDim));
    addSplitView(rest);
  }
  /// Whoever keeps the view longer asks a delegate that is no more.
  ~LoopBrowserPane() override { call<"setDelegate:">(view_.get(), NSObject()); }
  LoopBrowserPane(const LoopBrowserPane&) = delete;
  LoopBrowserPane& operator=(const LoopBrowserPane&) = delete;
  [[nodiscard]] NSView view() const override { return view_; }

 private:
  void addMenus(CGRect place) {
    const double half = place.size.width * 0.56;
    stateOf<MALoopBrowserController>(controller_.get()).jamPackControl = helpfulPopUp(
        view_, CGRectMake(8, place.minY() + 5, half - 12, 22),
        {"Loop Packs: All Packs", "Night City", "Rooms & Halls", "User Loops"}, literal<"LPB_023_LoopsMenu">());
    helpfulPopUp(view_, CGRectMake(half, place.minY() + 5, place.size.width - half - 8, 22),
                 {"Scale: Any", "Major", "Minor", "Neither"}, literal<"LPB_024_ScaleMenu">());
  }
  void addSplitView(CGRect place) {
    const Ref<NSView> split = newView("MALoopBrowserSplitView", place);
    view_->addSubview(split);
    giveLayer(split);
    CGRect rest = split->bounds();
    const CGRect tabs = takeTop(rest, 28);
    addFilter(split, tabs, takeTop(rest, 172));
    rest.size.height -= 1;
    constexpr double kFolders = 128;
    addLoops(split, CGRectMake(0, kFolders + 1, rest.size.width, rest.size.height - kFolders - 1));
    addFolders(split, CGRectMake(0, 0, rest.size.width, kFolders));
  }
  /// The filter shows what belongs to the selected tab, below it.
  static void addFilter(NSView split, CGRect tabPlace, CGRect place) {
    const Ref<NSView> tabs = newView("MAKitTabView", tabPlace);
    stateOf<MAKitTabView>(tabs.get()).tabs = {"Instrument", "Genre", "Descriptors"};
    split.addSubview(tabs);
    giveLayer(tabs);
    const Ref<NSView> filter = newView("MALoopBrowserFilterSegmentedControl", place);
    stateOf<MALoopBrowserFilterSegmentedControl>(filter.get()).build();
    split.addSubview(filter);
  }
  void addLoops(NSView split, CGRect place) const {
    const double name = place.size.width - 138;
    const Ref<NSTableView> loops = addList(split, place,
                                           {.className = "MALoopBrowserTableView",
                                            .gridStyleMask = NSTableViewSolidVerticalGridLineMask,
                                            .columns = {{"Name", name, "ImageAndTextCell"},
                                                        {"Beats", 46, "MATextFieldCell", NSTextAlignmentCenter},
                                                        {"Key", 40, "MATextFieldCell", NSTextAlignmentCenter},
                                                        {"Tempo", 52, "MATextFieldCell", NSTextAlignmentCenter}}},
                                           loops_);
    loops->selectRow(3);
  }
  void addFolders(NSView split, CGRect place) const {
    addList(split, place,
            {.className = "MALoopBrowserOutlineView", .columns = {{"Folders", place.size.width, "ImageAndTextCell"}}},
            folders_);
  }

  Ref<NSView> view_;
  Ref<NSObject> controller_;
  Ref<NSObject> loops_;
  Ref<NSObject> folders_;
};

}  // namespace

std::unique_ptr<Pane> makeLoopBrowserPane(const PanePlace& place) { return std::make_unique<LoopBrowserPane>(place); }

void toggleLoopFilter(NSView filter, std::size_t toggle) {
  stateOf<MALoopBrowserFilterSegmentedControl>(filter).toggle(toggle);
}

void defineLoopBrowserClasses() {
  definePlainClass<"MALoopBrowserView">("MAKitView");
  definePlainClass<"MALoopBrowserSplitView">("MASplitView");
  definePlainClass<"MALoopBrowserTableView">("MAKitTableView");
  definePlainClass<"MALoopBrowserOutlineView">("MAKitOutlineView");
  definePlainClass<"MALoopBrowserListController">("MAKitListController");
  ClassDefinition<MALoopBrowserController>("MALoopBrowserController", "NSViewController")
      .getter<"jamPackControl", &MALoopBrowserController::jamPackControl>()
      .registered();
  ClassDefinition<MALoopBrowserSegmentedTextLabelCell>("MALoopBrowserSegmentedTextLabelCell", "NSCell")
      .method<"attributedString", &MALoopBrowserSegmentedTextLabelCell::attributedString>()
      .method<"drawInteriorWithFrame:inView:", &MALoopBrowserSegmentedTextLabelCell::drawInterior>()
      .registered();
  ClassDefinition<MALoopBrowserFilterSegmentedControl>("MALoopBrowserFilterSegmentedControl", "NSView")
      .method<"cells", &MALoopBrowserFilterSegmentedControl::cellsArray>()
      .method<"drawRect:", &MALoopBrowserFilterSegmentedControl::drawRect>()
      .method<"mouseDown:", &MALoopBrowserFilterSegmentedControl::mouseDown>()
      .registered();
}

}  // namespace host
