#pragma once
// What knobs, panners and caps share: which of them is a panner, their images, and their rings and discs.

#include <string_view>

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/KeyPair.h"

namespace velura {

/// Whether a knob is a panner, by its name. Spreads, shapes and caps ask it of the knob that they belong to.
bool isPannerKnob(MANode knob);

inline constexpr KeyPair kPannerRing{key<"pannerKnobMeterBackgroundColor">,
                                     key<"pannerKnobMeterBackgroundHighlightColor">};
inline constexpr KeyPair kSendRing{key<"sendKnobMeterBackgroundColor">, key<"sendKnobMeterBackgroundHighlightColor">};
inline constexpr KeyPair kPannerCap{key<"pannerKnobBackgroundColor">, key<"pannerKnobBackgroundHighlightColor">};
inline constexpr KeyPair kSendCap{key<"sendKnobBackgroundColor">, key<"sendKnobBackgroundHighlightColor">};

// ---- Images -------------------------------------------------------------------------------------------

/// A layer of the plug-in's own on the layer of a node, which shows an image of the theme.
struct ImageLayer {
  NSString (*name)();
  std::string_view image;  // the stem of its images' names
  bool setsPosition;       // takes the place of the node's layer, not only its size
};
inline constexpr ImageLayer kKnobBackground{cocoa::literal<"knobBG">, "mixer_panner_stereo_bg", false};
inline constexpr ImageLayer kKnobFace{cocoa::literal<"knob">, "mixer_panner_knob", true};
inline constexpr ImageLayer kKnobPointer{cocoa::literal<"dash">, "mixer_panner_pointer", true};

/// Makes the layer on first use and brings it up to date. `presentation` is the layer of `node`, whose strip
/// decides which images are shown; a missing image leaves the layer empty.
void updateImageLayer(const ImageLayer& what, MANode node, NSObject presentation, bool isHighlighted);

/// What the update of a cap adds to the host's own: on a panner, an image in the place of the host's pointer.
void updatePointer(MANode cap, NSObject presentation);

/// Names of an image for strips that are not selected and that are.
struct ImagePair {
  NSString (*plain)();
  NSString (*highlighted)();
};
inline constexpr ImagePair kSendFace{cocoa::literal<"mixer_sendvolume_bg">, cocoa::literal<"mixer_sendvolume_bg_sel">};
inline constexpr ImagePair kSendCapImage{cocoa::literal<"mixer_sendvolume_knob">,
                                         cocoa::literal<"mixer_sendvolume_knob_sel">};
inline constexpr ImagePair kSurroundBackground{cocoa::literal<"mixer_panner_surround_bg">,
                                               cocoa::literal<"mixer_panner_surround_bg_sel">};

/// Draws an image of the theme in the middle of a rectangle of the node, in place of what is there. False when
/// the theme has none.
bool drawImage(const ImagePair& images, MANode node, CGRect rect, CGContextRef context);

// ---- Rings and discs ----------------------------------------------------------------------------------

/// The ring behind the value: 310 degrees, open at the bottom.
void drawRing(CGRect rect, CGContextRef context, NSColor color);
void fillDisc(CGRect rect, CGContextRef context, NSColor color);

}  // namespace velura
