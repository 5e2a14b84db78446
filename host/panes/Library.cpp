#include "host/panes/Library.h"

#include <cmath>

#include "cocoa/Call.h"
#include "host/drawing/TrackIcon.h"
#include "host/kit/KitLists.h"
#include "host/kit/KitViews.h"

namespace host {
namespace {

using namespace cocoa;

struct Patch {
  const char* name;
  const char* kind;
  const char* icon;
};
constexpr Patch kPatches[] = {
    {"Amber Suitcase", "Electric Piano", "piano"}, {"Bell Tower", "Electric Piano", "keys"},
    {"Cellar Tines", "Electric Piano", "piano"},   {"Dusty Reeds", "Electric Piano", "keys"},
    {"Evening Stage", "Electric Piano", "piano"},  {"Felt & Chorus", "Electric Piano", "piano"},
    {"Glass Hammers", "Electric Piano", "keys"},   {"Low Tide Keys", "Electric Piano", "piano"},
    {"Neon Ballad", "Electric Piano", "synth"},    {"Quiet Motel", "Electric Piano", "keys"},
};

constexpr const char* kCategories[] = {"Acoustic Piano", "Bass",      "Choirs",       "Drum Kits",     "Electric Piano",
                                       "Guitar",         "Mallets",   "Orchestral",   "Organ",         "Percussion",
                                       "Synth Lead",     "Synth Pad", "Vintage Keys", "World & Others"};
constexpr std::size_t kShownCategory = 4;

constexpr const char* kResults[][2] = {
    {"Harbour Lights", "Synth Pad"}, {"Slow Marquee", "Vintage Keys"}, {"Copper Strings", "Orchestral"},
    {"Night Bus Bass", "Bass"},      {"Paper Snare Kit", "Drum Kits"}, {"Foghorn Lead", "Synth Lead"},
    {"Velvet Booth", "Organ"},
};

/// The picture of the patch: an icon on the box that it lies in.
struct CLgLibraryPictureView : ObjectState {
  const char* icon = "piano";

  void drawRect(CGRect /*dirty*/) {
    const CGRect bounds = NSView(self).bounds();
    drawTrackIcon(currentPainter(), icon, {bounds.midX(), bounds.midY()}, 2.4);
  }
};

struct CLgLibraryViewController : ObjectState {
  Ref<NSTextField> headerTitle;
  Ref<NSTextField> subtitle;
  Ref<NSPopUpButton> soundPacks;
  Ref<NSView> picture;
  Ref<NSTableView> patches;
  Ref<NSObject> categoryList;
  Ref<NSObject> patchList;
  Ref<NSObject> resultList;
  std::size_t patch = 0;

  /// Shows the patch that was chosen. Whatever was shown before is gone, looks included.
  void updateUI(NSObject /*dataSource*/) {
    const Patch& chosen = kPatches[patch];
    headerTitle->setStringValue(string(chosen.name));
    headerTitle->setTextColor(catalogueColor(Palette::kLibraryTitle));
    subtitle->setStringValue(string(chosen.kind));
    subtitle->setTextColor(catalogueColor(Palette::kLibraryText));
    soundPacks->selectItemAtIndex(0);
    soundPacks->selectedItem().setAttributedTitle({});
    soundPacks->setContentTintColor(
        call<"colorWithPath:", NSColor>(classNamed("MAKitColor"), literal<"Dark.menuArrows">()));
    stateOf<CLgLibraryPictureView>(picture.get()).icon = chosen.icon;
    picture->setNeedsDisplay(true);
    patches->selectRow(static_cast<NSInteger>(patch));
  }
};

// ---- Building -----------------------------------------------------------------------------------------

void addHeader(NSView view, CGRect place, CLgLibraryViewController& controller) {
  constexpr double kPicture = 72;
  view.addSubview(newBox(place, catalogueColor(Palette::kLibraryHeader)));
  view.addSubview(
      newBox(CGRectMake(place.minX(), place.minY(), place.size.width, 1), catalogueColor(Palette::kLibrarySeparator)));
  const CGRect picture = CGRectMake(place.minX() + 12, place.midY() - kPicture / 2, kPicture, kPicture);
  const Ref<NSBox> frame = newBox(picture, catalogueColor(Palette::kLibraryPicture), 8);
  view.addSubview(frame);
  controller.picture = newView("CLgLibraryPictureView", {{}, picture.size});
  frame->addSubview(controller.picture);
  const double left = picture.maxX() + 12;
  const double width = place.maxX() - left - 10;
  controller.headerTitle = newLabel("", CGRectMake(left, picture.maxY() - 24, width, 20),
                                    catalogueColor(Palette::kLibraryTitle), 15, NSFontWeightSemibold);
  controller.subtitle =
      newLabel("", CGRectMake(left, picture.maxY() - 42, width, 15), catalogueColor(Palette::kLibraryText), 11);
  controller.soundPacks = newPopUpButton("NSPopUpButton", CGRectMake(left, picture.minY(), width, 21),
                                         {"All Sound Packs", "Night City", "Rooms & Halls", "User Patches"});
  controller.soundPacks->setFont(NSFont::systemFontOfSize(11));
  view.addSubview(controller.headerTitle);
  view.addSubview(controller.subtitle);
  view.addSubview(controller.soundPacks);
}

std::vector<ListRow> categoryRows() {
  std::vector<ListRow> rows;
  for (const char* name : kCategories) rows.push_back({{name}, Icon::kFolder});
  return rows;
}
std::vector<ListRow> patchRows() {
  std::vector<ListRow> rows;
  for (const Patch& patch : kPatches) rows.push_back({{patch.name}});
  return rows;
}
std::vector<ListRow> resultRows() {
  std::vector<ListRow> rows;
  for (const auto& result : kResults) rows.push_back({{result[0], result[1]}, Icon::kStar});
  return rows;
}

/// Category and patch side by side.
void addBrowser(NSView view, CGRect place, CLgLibraryViewController& controller) {
  const double half = std::floor(place.size.width / 2);
  controller.categoryList = newListController("CLgLibraryListController", categoryRows());
  const Ref<NSTableView> categories = addList(view, CGRectMake(place.minX(), place.minY(), half, place.size.height),
                                              {.className = "MAKitTableView",
                                               .columns = {{"Category", half, "ImageAndTextCell"}},
                                               .hasTitles = false,
                                               .rowHeight = 21},
                                              controller.categoryList);
  categories->selectRow(static_cast<NSInteger>(kShownCategory));
  controller.patchList = newListController("CLgLibraryListController", patchRows());
  const double rest = place.size.width - half - 1;
  controller.patches = addList(view, CGRectMake(place.minX() + half + 1, place.minY(), rest, place.size.height),
                               {.className = "MAKitTableView",
                                .columns = {{"Patch", rest, "MATextFieldCell"}},
                                .hasTitles = false,
                                .rowHeight = 21},
                               controller.patchList);
}

/// The colours of this one are the platform's table's, not one of the host's sets.
void addResults(NSView view, CGRect place, CLgLibraryViewController& controller) {
  controller.resultList = newListController("CLgLibraryListController", resultRows());
  const double name = std::floor(place.size.width * 0.58);
  const Ref<NSTableView> table = addList(view, place,
                                         {.className = "NSTableView",
                                          .gridStyleMask = NSTableViewSolidVerticalGridLineMask,
                                          .columns = {{"Recent Patch", name, "ImageAndTextCell"},
                                                      {"Category", place.size.width - name, "MATextFieldCell"}}},
                                         controller.resultList);
  table->setGridColor(paletteColor(Palette::kListGrid));
  table->setBackgroundColor(paletteColor(Palette::kListBackground));
  table->setAutosaveName(literal<"LibrarySearchTableView">());
}

class LibraryPane : public Pane {
 public:
  explicit LibraryPane(const PanePlace& place)
      : view_(newView("CLgLibBrowserView", place.frame)), controller_(newObject("CLgLibraryViewController")) {
    view_->layer().setBackgroundColor(catalogueColor(Palette::kLibraryBackground).CGColor());
    cast<NSViewController>(controller_).setView(view_);
    auto& controller = stateOf<CLgLibraryViewController>(controller_);
    CGRect rest = view_->bounds();
    view_->addSubview(newControlsView(takeTop(rest, 26), 2, "Library"));
    addHeader(view_, takeTop(rest, 100), controller);
    addSearchField(view_, takeTop(rest, 33).insetBy(10, 5), "Search Sounds", catalogueColor(Palette::kLibrarySearch),
                   catalogueColor(Palette::kLibrarySearchText));
    addBrowser(view_, takeTop(rest, std::floor(rest.size.height * 0.62)), controller);
    addResults(view_, CGRectMake(0, 0, rest.size.width, rest.size.height - 1), controller);
    call<"_updateUIWithAvailableDataSource:">(controller_.get(), controller.patchList.get());
  }
  [[nodiscard]] NSView view() const override { return view_; }

 private:
  Ref<NSView> view_;
  Ref<NSObject> controller_;
};

}  // namespace

std::unique_ptr<Pane> makeLibraryPane(const PanePlace& place) { return std::make_unique<LibraryPane>(place); }

void choosePatch(NSView libraryView, std::size_t patch) {
  const NSObject controller = libraryView.nextResponder();
  auto& state = stateOf<CLgLibraryViewController>(controller);
  state.patch = patch % std::size(kPatches);
  call<"_updateUIWithAvailableDataSource:">(controller, state.patchList.get());
}

void defineLibraryClasses() {
  definePlainClass<"CLgLibBrowserView">("MAKitView");
  definePlainClass<"CLgLibraryListController">("MAKitListController");
  ClassDefinition<CLgLibraryPictureView>("CLgLibraryPictureView", "NSView")
      .method<"drawRect:", &CLgLibraryPictureView::drawRect>()
      .registered();
  ClassDefinition<CLgLibraryViewController>("CLgLibraryViewController", "NSViewController")
      .getter<"headerTitle", &CLgLibraryViewController::headerTitle>()
      .getter<"soundPacksFilterPopUpButton", &CLgLibraryViewController::soundPacks>()
      .method<"_updateUIWithAvailableDataSource:", &CLgLibraryViewController::updateUI>()
      .registered();
}

}  // namespace host
