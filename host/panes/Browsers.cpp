#include "host/panes/Browsers.h"

#include <cmath>
#include <cstdio>

#include "cocoa/Call.h"
#include "host/kit/KitLists.h"
#include "host/kit/KitViews.h"

namespace host {
namespace {

using namespace cocoa;

struct File {
  Icon icon;
  const char* name;
  const char* date;
  const char* size;
};
constexpr File kFiles[] = {
    {Icon::kFolder, "Bounces", "12 May", "--"},
    {Icon::kFolder, "Field Recordings", "3 May", "--"},
    {Icon::kFolder, "Old Ideas", "28 Apr", "--"},
    {Icon::kFolder, "Stems", "12 May", "--"},
    {Icon::kProject, "Night Drive v3", "14 May", "84 MB"},
    {Icon::kProject, "Quiet Coast", "2 Apr", "41 MB"},
    {Icon::kAudioFile, "Bridge Rain.wav", "9 May", "6.2 MB"},
    {Icon::kAudioFile, "Choir Swell.aif", "7 May", "11 MB"},
    {Icon::kMidiFile, "Chorus Voicings.mid", "1 May", "4 KB"},
    {Icon::kAudioFile, "Crash Reverse.wav", "30 Apr", "1.8 MB"},
    {Icon::kAudioFile, "Tape Hiss.wav", "22 Apr", "18 MB"},
    {Icon::kMidiFile, "Walking Bass.mid", "19 Apr", "6 KB"},
};

std::vector<ListRow> fileRows() {
  std::vector<ListRow> rows;
  for (const File& file : kFiles) rows.push_back({{file.name, file.date, file.size}, file.icon});
  return rows;
}

std::string megabytes(double bars) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f MB", bars * 0.55);
  return text;
}

/// Every track that was recorded has a file; what is used of it stands below.
std::vector<ListRow> binRows(const Song& song) {
  std::vector<ListRow> rows;
  for (const Track& track : song.tracks) {
    if (track.type != StripType::kAudio || track.folder || track.regions.empty()) continue;
    ListRow file{{track.name + ".wav", track.stereo ? "Stereo\t48 kHz, 24 bit" : "Mono\t48 kHz, 24 bit", ""}};
    double bars = 0;
    for (const Region& region : track.regions) {
      char length[48];
      std::snprintf(length, sizeof length, "Bar %g\t%g bars", region.start, region.length);
      file.children.push_back({{region.name, length, ""}});
      bars += region.length;
    }
    file.texts[2] = megabytes(bars);
    rows.push_back(std::move(file));
  }
  return rows;
}

std::vector<ListRow> noteRows(const Song& song) {
  std::vector<ListRow> rows{{{"Project Notes", "Today"}, Icon::kPage}};
  for (const Track& track : song.tracks) {
    if (!track.notes.empty()) rows.push_back({{track.name + ": " + track.notes, "Track"}, Icon::kPage});
  }
  return rows;
}

class BrowsersPane : public Pane {
 public:
  explicit BrowsersPane(const PanePlace& place) : view_(newView("LGBrowserAreaView", place.frame)) {
    view_->layer().setBackgroundColor(paletteColor(Palette::kPaneBackground).CGColor());
    CGRect rest = view_->bounds();
    view_->addSubview(newControlsView(takeTop(rest, 26), 0, "All Files"));
    addFiles(takeTop(rest, std::floor(rest.size.height * 0.42)));
    view_->addSubview(newControlsView(takeTop(rest, 26), 0, "Project"));
    addBin(takeTop(rest, rest.size.height - 118), place.song);
    view_->addSubview(newControlsView(takeTop(rest, 26), 0, "Notes"));
    addNotes(rest, place.song);
  }
  [[nodiscard]] NSView view() const override { return view_; }
  [[nodiscard]] NSView browserView() const override { return view_; }

 private:
  NSObject controller(const char* className, const std::vector<ListRow>& rows) {
    controllers_.push_back(newListController(className, rows));
    return controllers_.back();
  }
  void addFiles(CGRect place) {
    const double name = place.size.width - 118;
    const Ref<NSTableView> files =
        addList(view_, place,
                {.className = "MyMAKitTableView",
                 .columns = {{"Name", name, "ImageAndTextCell"},
                             {"Date", 58, "LGFileBrowserTextFieldCell"},
                             {"Size", 60, "LGFileBrowserTextFieldCell", NSTextAlignmentRight}}},
                controller("LGMediaBrowserViewController", fileRows()));
    files->selectRow(4);
  }
  void addBin(CGRect place, const Song& song) {
    const double name = place.size.width - 180;
    addList(view_, place,
            {.className = "BinMAKitOutlineView",
             .gridStyleMask = NSTableViewSolidVerticalGridLineMask | NSTableViewSolidHorizontalGridLineMask,
             .columns = {{"Name", name, "BinTextFieldCell"},
                         {"Info", 122, "BinProEditableInfoFieldCell"},
                         {"Size", 58, "BinTextFieldCell"}},
             .rowHeight = 18},
            controller("LGProjectBinViewController", binRows(song)));
  }
  void addNotes(CGRect place, const Song& song) {
    addList(view_, place,
            {.className = "MyMAKitTableView",
             .columns = {{"Note", place.size.width - 50, "ImageAndTextCell"}, {"Of", 50, "MATextFieldCell"}},
             .hasTitles = false},
            controller("LGProjectNotesController", noteRows(song)));
  }

  Ref<NSView> view_;
  std::vector<Ref<NSObject>> controllers_;
};

}  // namespace

std::unique_ptr<Pane> makeBrowsersPane(const PanePlace& place) { return std::make_unique<BrowsersPane>(place); }

void defineBrowserClasses() {
  definePlainClass<"LGBrowserAreaView">("MAKitView");
  definePlainClass<"MyMAKitTableView">("MAKitTableView");
  definePlainClass<"BinMAKitOutlineView">("MAKitOutlineView");
  definePlainClass<"LGMediaBrowserViewController">("MAKitListController");
  definePlainClass<"LGProjectBinViewController">("MAKitListController");
  definePlainClass<"LGProjectNotesController">("MAKitListController");
}

}  // namespace host
