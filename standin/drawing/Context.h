#pragma once
// A bitmap graphics context. Plain rectangles, tiles, images and gradients are written to the pixels
// directly; everything else goes through the drawing library, whose own context is made when it is first
// needed and follows this one's state from then on.

#include <cairo.h>

#include <optional>
#include <vector>

#include "standin/color/Color.h"
#include "standin/paths/Path.h"
#include "standin/pixels/RowFill.h"

namespace standin {

struct Shadow {
  CGSize offset;
  double blur = 0;
  Rgba color;
};

struct Dash {
  std::vector<double> lengths;
  double phase = 0;
};

/// A clip that is no rectangle of whole pixels, as it was added to earlier ones.
struct ClipShape;

/// What save and restore keep. The clip's exact shape is with the drawing library when it is no rectangle
/// of whole pixels; `clip` is then its bounds.
struct GraphicsState {
  CGAffineTransform ctm;
  /// The space that patterns lie in: their tiles start at its origin, upright and at its scale.
  CGAffineTransform patternSpace;
  CGSize patternPhase;
  Paint fill;
  Paint stroke;
  double alpha = 1;
  double lineWidth = 1;
  double miterLimit = 10;
  CGLineCap lineCap = kCGLineCapButt;
  CGLineJoin lineJoin = kCGLineJoinMiter;
  CGBlendMode blendMode = kCGBlendModeNormal;
  CGInterpolationQuality interpolation = kCGInterpolationDefault;
  bool antialias = true;
  bool hasShapedClip = false;
  PixelRect clip;
  std::shared_ptr<const Dash> dash;
  std::shared_ptr<const Shadow> shadow;
  std::shared_ptr<const ClipShape> shapes;  // the latest; kept only where the library's context may move
};

/// State of a CGContext.
class Context : public cocoa::ObjectState {
 public:
  Context() = default;
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;
  ~Context();

  /// Draws into `pixels`, which `owner` keeps alive; y points up from the bottom, `scale` pixels a unit.
  void begin(const PixelView& pixels, std::shared_ptr<const void> owner, double scale);

  [[nodiscard]] const PixelView& pixels() const { return target().pixels; }
  [[nodiscard]] GraphicsState& state() { return states_.back(); }
  [[nodiscard]] const GraphicsState& state() const { return states_.back(); }

  void save();
  void restore();
  void setTransform(const CGAffineTransform& ctm);
  void concat(const CGAffineTransform& transform);

  [[nodiscard]] PathElements& path() { return path_; }
  enum class Rule { kNonZero, kEvenOdd };
  void fillPath(Rule rule);
  void strokePath();
  void fillAndStrokePath(Rule rule);
  void clipToPath(Rule rule);
  void clipToRect(CGRect rect);
  void clipToPixels(const PixelRect& area);
  /// Every pixel that a rectangle of user space touches.
  [[nodiscard]] PixelRect touchedPixels(CGRect rect) const;
  /// In user space.
  [[nodiscard]] CGRect clipBounds() const;

  void fillRect(CGRect rect);
  void clearRect(CGRect rect);
  void drawSurface(CGRect rect, const std::shared_ptr<const Surface>& image);
  /// A part of the image: `source` in its pixels, y down.
  void drawSurface(CGRect rect, const std::shared_ptr<const Surface>& image, CGRect source);
  /// Over everything that the clip lets through.
  void drawLinearGradient(std::span<const GradientStop> stops, CGPoint start, CGPoint end, GradientEnds ends);
  void drawRadialGradient(std::span<const GradientStop> stops, CGPoint startCenter, double startRadius,
                          CGPoint endCenter, double endRadius, GradientEnds ends);
  /// Only inside the rectangle.
  void fillRectWithGradient(CGRect rect, std::span<const GradientStop> stops, CGPoint start, CGPoint end);

  /// What is drawn from `beginLayer` to `endLayer` lands as one picture: with the alpha, the blend mode and
  /// the shadow that were set before.
  void beginLayer();
  void endLayer();
  /// Keeps of the innermost layer what `mask` covers; `mask` has the layer's area.
  void maskLayer(const PixelView& mask);
  [[nodiscard]] std::shared_ptr<const Surface> endLayerWithoutDrawing(PixelRect& area);

  /// The drawing library's context, in this context's state; for text and the like. Call `touched` after
  /// drawing with it. The fill colour is its source after `useFill`.
  cairo_t* library();
  /// The same for drawing near the origin of user space.
  cairo_t* libraryNearOrigin();
  void useFill();
  void touched();

  /// The whole pixels that a rectangle of user space covers exactly; nothing when it covers parts.
  [[nodiscard]] std::optional<PixelRect> wholePixels(CGRect rect) const;
  /// A rectangle of whole pixels filled as `fillRect` does, when that can be done directly.
  bool fillDirectly(const PixelRect& area, const Paint& paint);
  bool blitDirectly(const PixelRect& area, const std::shared_ptr<const Surface>& image);

 private:
  struct Target {
    PixelView pixels;
    std::shared_ptr<const void> owner;
    std::size_t firstState = 0;
    cairo_t* library = nullptr;
    PixelRect band;  // the rows that the library's context covers
  };
  [[nodiscard]] Target& target() { return targets_.back(); }
  [[nodiscard]] const Target& target() const { return targets_.back(); }

  static void finish(Target& target);
  /// The library draws into a limited number of rows: of a taller target it covers a band, which moves.
  [[nodiscard]] bool isTall() const;
  void openLibrary(int top, int bottom);
  void useBand(const PixelRect& rows);
  template <class F>
  void inBands(const PixelRect& touched, F&& draw);
  void beforeDirect();
  void afterDirect();
  static void applyClip(cairo_t* cr, const GraphicsState& state);
  void usePath(const PathElements& path);
  /// Sets the source; answers the alpha that painting still has to apply.
  double usePaint(const Paint& paint);
  void usePattern(PatternState& pattern);
  void useStrokeStyle();
  void usePicture(const std::shared_ptr<const Surface>& picture, const PixelRect& area);
  bool useGradient(std::span<const GradientStop> stops, const GradientLine& line, GradientEnds ends,
                   const PixelRect& area);
  /// Paints inside the drawing library's current path, whatever the blend mode.
  void paintPath(Rule rule, double alpha);
  void fillElements(const PathElements& path, Rule rule);
  void strokeElements(const PathElements& path);
  [[nodiscard]] std::optional<GradientLine> gradientLine(CGPoint start, CGPoint end) const;
  void drawPicture(const std::shared_ptr<const Surface>& picture, const PixelRect& area);
  void drawShadow(const Surface& picture, const PixelRect& area, const Shadow& shadow);
  /// `touched`: every pixel that `draw` changes.
  template <class F>
  void shadowed(const PixelRect& touched, F&& draw);
  [[nodiscard]] bool paintsDirectly() const;

  std::vector<Target> targets_;
  std::vector<GraphicsState> states_;
  PathElements path_;  // in device space
  double baseScale_ = 1;
};

/// Owned by the caller; null when the sizes are refused. The context draws into `surface` and keeps it.
CGContextRef makeContext(const std::shared_ptr<Surface>& surface, double scale = 1);
/// The same over foreign memory that `owner` keeps alive.
CGContextRef makeContext(const PixelView& pixels, std::shared_ptr<const void> owner, double scale = 1);
inline Context& contextState(CGContextRef context) { return stateBehind<Context>(context); }
/// The current context of AppKit's drawing; null while there is none.
Context* currentContext();
/// A context of AppKit's around another one, autoreleased; nil for null. `keeps` lives as long as it does.
NSGraphicsContext graphicsContext(CGContextRef context, bool flipped, NSObject keeps = {});

CGBlendMode blendModeFor(NSCompositingOperation operation);

/// Saves on entry, restores on exit.
class SavedState {
 public:
  explicit SavedState(Context& context) : context_(context) { context_.save(); }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;
  ~SavedState() { context_.restore(); }

 private:
  Context& context_;
};

}  // namespace standin
