#include "plugin/arrange/TrackTable.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "cocoa/Exception.h"
#include "plugin/hostapi/Accessibility.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// Spares the host's accessibility answers the formatting of texts that nobody reads.
class DrawingMode {
 public:
  DrawingMode() { ThemeUtility::shared().isInDrawingMode = true; }
  DrawingMode(const DrawingMode&) = delete;
  DrawingMode& operator=(const DrawingMode&) = delete;
  ~DrawingMode() { ThemeUtility::shared().isInDrawingMode = false; }
};

TrackRecord recordOf(NSObject element) {
  TrackRecord record;
  const double height = accessibilitySize(element).value_or(CGSize{}).height;
  record.height = std::isfinite(height) ? std::max(height, 0.0) : 0;
  record.selected = respondsTo<"isSelected">(element) && callBool<"isSelected">(element.object);
  record.folder = isFolderTrack(element);
  return record;
}

std::vector<TrackRecord> readTracks(NSView header) {
  std::vector<TrackRecord> records;
  const NSArray children = accessibilityChildrenOf(header);
  records.reserve(children.count());
  for (const NSObject child : items(children)) records.push_back(recordOf(child));
  return records;
}

NSData packed(const std::vector<TrackRecord>& records) {
  const std::uint64_t count = records.size();
  std::vector<char> bytes(sizeof count + records.size() * sizeof(TrackRecord));
  std::memcpy(bytes.data(), &count, sizeof count);
  if (count > 0) std::memcpy(bytes.data() + sizeof count, records.data(), bytes.size() - sizeof count);
  return NSData::dataWithBytes(bytes.data(), bytes.size());
}

}  // namespace

bool isFolderTrack(NSObject element) {
  for (const NSObject child : items(accessibilityChildrenOf(element))) {
    if (accessibilityText(child, literal<"AXRole">()).isEqualToString(NSAccessibilityDisclosureTriangleRole)) {
      return true;
    }
  }
  return false;
}

NSData trackTableOf(NSView header) {
  std::vector<TrackRecord> records;
  const auto raised = guarded([&] {
    const DrawingMode mode;
    records = readTracks(header);
  });
  if (!raised) return packed(records);
  NSLog(literal<"[Velura] vlrBuildTrackCacheSynchronously: exception: %@ — %@">().object, string(raised->name).object,
        string(raised->reason).object);
  return {};
}

std::vector<TrackRecord> tracksIn(NSData table) {
  std::uint64_t count = 0;
  const std::size_t length = table.length();
  if (length < sizeof count) return {};
  std::memcpy(&count, table.bytes(), sizeof count);
  count = std::min<std::uint64_t>(count, (length - sizeof count) / sizeof(TrackRecord));
  std::vector<TrackRecord> records(count);
  if (count > 0) {
    std::memcpy(records.data(), static_cast<const char*>(table.bytes()) + sizeof count, count * sizeof(TrackRecord));
  }
  return records;
}

}  // namespace velura
