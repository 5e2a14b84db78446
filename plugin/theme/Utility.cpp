#include "plugin/theme/Utility.h"

#include "cocoa/Override.h"
#include "cocoa/QuartzCore.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/theme/ThemeFiles.h"

namespace velura {

using namespace cocoa;

namespace {

/// The strip that a node belongs to, which may be the node itself; nil outside of one.
MANode stripAround(MANode node) {
  while (node && !node.className().isEqualToString(literal<"MAStripNode">())) node = node.parent();
  return node;
}

/// A folder strip shows a control that opens and closes it.
bool isFolder(MANode strip) {
  for (const MANode child : items<MANode>(strip.childrenArray())) {
    if (child.isNamed<"disclosure">()) return true;
  }
  return false;
}

NSObject sharedInstance(Class self) {
  static const id instance = send<id>(send<id>(self, selector<"alloc">()), selector<"init">());
  return NSObject(instance);
}

void removeUnchangedColorFromDictionary(Class /*self*/, NSMutableDictionary theme) { removeUnchangedColors(theme); }

NSInteger getTrackType(Class /*self*/, NSObject node) { return static_cast<NSInteger>(trackTypeOf(node)); }

ImageSet sharedIf(BOOL shared) { return shared != 0 ? ImageSet::kShared : ImageSet::kOwn; }

template <FixedString Stem>
NSString pannerImage(Class /*self*/, BOOL highlighted, NSInteger type, BOOL shared) {
  return string(pannerImageName(Stem.view(), highlighted != 0, TrackType(type), sharedIf(shared)));
}

NSString faderImage(Class /*self*/, BOOL highlighted, NSInteger type, BOOL shared) {
  const auto name = faderImageName(highlighted != 0, TrackType(type), sharedIf(shared));
  return name ? string(*name) : NSString();
}

/// Exchanges two methods of a class, or of its metaclass for class methods. A pair of which either is missing is left
/// alone.
void exchange(Class /*self*/, Class cls, SEL host, SEL replacement) { exchangeMethods(cls, host, replacement); }

CALayer sublayerWithName(Class /*self*/, CALayer layer, NSString name) { return sublayerNamed(layer, name); }

}  // namespace

TrackType trackTypeOf(NSObject node) {
  const MANode strip = stripAround(cast<MANode>(node));
  if (!strip) return TrackType::kNone;
  if (isFolder(strip)) return TrackType::kFolder;
  const auto dataSource = call<"dataSource", NSObject>(strip.controller());
  if (!respondsTo<"typeOfStrip:">(dataSource)) return TrackType::kAudio;
  return TrackType(call<"typeOfStrip:", NSInteger>(dataSource, strip.representedObject()));
}

CALayer sublayerNamed(CALayer layer, NSString name) {
  for (const CALayer sublayer : items<CALayer>(layer.sublayers())) {
    if (sublayer.name().isEqualToString(name)) return sublayer;
  }
  return {};
}

NSMutableDictionary Utility::getColorCollection() const { return loadThemeSettings(); }

void defineUtility() {
  if (DefinedClass<Utility>::cls != nullptr) return;
  ClassDefinition<Utility>("Utility", "NSObject")
      .classMethod<"sharedInstance", sharedInstance>()
      .method<"getColorCollection", &Utility::getColorCollection>()
      .classMethod<"removeUnchangedColorFromDictionary:", removeUnchangedColorFromDictionary>()
      .classMethod<"getTrackType:", getTrackType>()
      .classMethod<"getmixer_panner_stereo:trackType:useSharedType:", pannerImage<"mixer_panner_stereo_bg">>()
      .classMethod<"getmixer_panner_pointer:trackType:useSharedType:", pannerImage<"mixer_panner_pointer">>()
      .classMethod<"getmixer_panner_knob:trackType:useSharedType:", pannerImage<"mixer_panner_knob">>()
      .classMethod<"getFaderImage:trackType:useSharedType:", faderImage>()
      .classMethod<"sublayer:withName:", sublayerWithName>()
      .classMethod<"swizzleInstanceMethod:orginalSelector:swizzledSelector:", exchange>()
      .classMethod<"swizzleClassMethod:orginalSelector:swizzledSelector:", exchange>()
      .registered();
}

}  // namespace velura
