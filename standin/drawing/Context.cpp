#include "standin/drawing/Context.h"

#include <cmath>

#include "standin/pixels/Blur.h"

using namespace cocoa;

namespace standin {

struct ClipShape {
  PathElements path;
  cairo_fill_rule_t rule;
  bool antialias;
  std::shared_ptr<const ClipShape> before;
};

namespace {

constexpr int kMostRows = kLongestSide;  // that the library draws into

/// Edges closer to a pixel border than this count as lying on it.
constexpr double kOnBorder = 1e-4;
constexpr double kFarthest = 1e6;
constexpr double kFarthestBlur = 128;

cairo_matrix_t matrixOf(const CGAffineTransform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }

bool isUpright(const CGAffineTransform& t) { return t.b == 0 && t.c == 0; }

std::optional<int> wholeNumber(double value) {
  const double rounded = std::nearbyint(value);
  if (!(std::abs(value - rounded) < kOnBorder) || std::abs(rounded) > kFarthest) return std::nullopt;
  return static_cast<int>(rounded);
}

int boundedInt(double value) { return static_cast<int>(std::fmax(-kFarthest, std::fmin(kFarthest, value))); }

PixelRect coveringPixels(CGRect r) {
  return {boundedInt(std::floor(r.minX() + kOnBorder)), boundedInt(std::floor(r.minY() + kOnBorder)),
          boundedInt(std::ceil(r.maxX() - kOnBorder)), boundedInt(std::ceil(r.maxY() - kOnBorder))};
}

CGRect asRect(const PixelRect& r) { return CGRectMake(r.left, r.top, r.width(), r.height()); }

struct BlendOperator {
  CGBlendMode mode;
  cairo_operator_t op;
  bool reachesOutside;  // the library would change what lies outside of the shape as well
};

constexpr BlendOperator kBlendOperators[] = {
    {kCGBlendModeNormal, CAIRO_OPERATOR_OVER, false},
    {kCGBlendModeMultiply, CAIRO_OPERATOR_MULTIPLY, false},
    {kCGBlendModeScreen, CAIRO_OPERATOR_SCREEN, false},
    {kCGBlendModeOverlay, CAIRO_OPERATOR_OVERLAY, false},
    {kCGBlendModeDarken, CAIRO_OPERATOR_DARKEN, false},
    {kCGBlendModeLighten, CAIRO_OPERATOR_LIGHTEN, false},
    {kCGBlendModeClear, CAIRO_OPERATOR_CLEAR, false},
    {kCGBlendModeCopy, CAIRO_OPERATOR_SOURCE, false},
    {kCGBlendModeSourceIn, CAIRO_OPERATOR_IN, true},
    {kCGBlendModeSourceOut, CAIRO_OPERATOR_OUT, true},
    {kCGBlendModeSourceAtop, CAIRO_OPERATOR_ATOP, false},
    {kCGBlendModeDestinationOver, CAIRO_OPERATOR_DEST_OVER, false},
    {kCGBlendModeDestinationIn, CAIRO_OPERATOR_DEST_IN, true},
    {kCGBlendModeDestinationOut, CAIRO_OPERATOR_DEST_OUT, false},
    {kCGBlendModeDestinationAtop, CAIRO_OPERATOR_DEST_ATOP, true},
    {kCGBlendModeXOR, CAIRO_OPERATOR_XOR, false},
    {kCGBlendModePlusLighter, CAIRO_OPERATOR_ADD, false},
};

const BlendOperator& blendOperator(CGBlendMode mode) {
  for (const BlendOperator& entry : kBlendOperators) {
    if (entry.mode == mode) return entry;
  }
  return kBlendOperators[0];
}

void setMatrix(cairo_t* cr, const CGAffineTransform& t) {
  const cairo_matrix_t matrix = matrixOf(t);
  cairo_set_matrix(cr, &matrix);
}

void addElements(cairo_t* cr, const PathElements& path) {
  for (const PathElement& e : path.elements()) {
    switch (e.verb) {
      case PathVerb::kMove:
        cairo_move_to(cr, e.end.x, e.end.y);
        break;
      case PathVerb::kLine:
        cairo_line_to(cr, e.end.x, e.end.y);
        break;
      case PathVerb::kCurve:
        cairo_curve_to(cr, e.control1.x, e.control1.y, e.control2.x, e.control2.y, e.end.x, e.end.y);
        break;
      case PathVerb::kClose:
        cairo_close_path(cr);
        break;
    }
  }
}

/// The library's surface over pixels; the caller destroys it.
cairo_surface_t* surfaceOver(const PixelView& pixels) {
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.base), CAIRO_FORMAT_ARGB32,
                                          pixels.area.width(), pixels.area.height(), static_cast<int>(pixels.stride));
  cairo_surface_set_device_offset(surface, -pixels.area.left, -pixels.area.top);
  return surface;
}

/// The library's surface over a picture, which lives as long as the surface does.
cairo_surface_t* surfaceKeeping(const std::shared_ptr<const Surface>& picture) {
  static const cairo_user_data_key_t kOwner{};
  cairo_surface_t* surface = surfaceOver(picture->view());
  auto* owner = new std::shared_ptr<const Surface>(picture);
  const auto release = [](void* kept) { delete static_cast<std::shared_ptr<const Surface>*>(kept); };
  cairo_surface_set_user_data(surface, &kOwner, owner, release);
  return surface;
}

/// Sets a source that comes out as exactly `pixel`, the channels taken as the library's own.
void setSourcePixel(cairo_t* cr, Pixel pixel) {
  const double alpha = alphaOf(pixel);
  if (alpha == 0) return cairo_set_source_rgba(cr, 0, 0, 0, 0);
  const auto channel = [&](unsigned shift) { return (pixel >> shift & 0xFFU) / alpha; };
  cairo_set_source_rgba(cr, channel(16), channel(8), channel(0), alpha / 255);
}

cairo_fill_rule_t fillRule(Context::Rule rule) {
  return rule == Context::Rule::kEvenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING;
}

/// Clips to the shapes that were added after `until`.
void clipToShapes(cairo_t* cr, const ClipShape* shape, const ClipShape* until) {
  for (; shape != nullptr && shape != until; shape = shape->before.get()) {
    cairo_set_antialias(cr, shape->antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    cairo_set_fill_rule(cr, shape->rule);
    cairo_new_path(cr);
    addElements(cr, shape->path);
    cairo_clip(cr);
  }
}

/// Only the rows of a picture that `source` needs, as far as the library can take them; moves `source`.
std::shared_ptr<const Surface> manageable(const std::shared_ptr<const Surface>& picture, CGRect& source) {
  if (picture->height() <= kMostRows) return picture;
  PixelView rows = picture->view();
  rows.area.top = std::max(0, static_cast<int>(std::floor(source.minY())) - 1);
  rows.area.bottom = std::min(picture->height(), static_cast<int>(std::ceil(source.maxY())) + 1);
  if (rows.area.isEmpty() || rows.area.height() > kMostRows) return nullptr;
  rows.base = reinterpret_cast<std::byte*>(picture->view().at(0, rows.area.top));
  source.origin.y -= rows.area.top;
  return copied(rows, rows.order);
}

cairo_filter_t filterFor(CGInterpolationQuality quality) {
  return quality == kCGInterpolationNone ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD;
}

}  // namespace

Context::~Context() {
  for (Target& each : targets_) finish(each);
}

void Context::begin(const PixelView& pixels, std::shared_ptr<const void> owner, double scale) {
  targets_.push_back({pixels, std::move(owner), 0, nullptr, {}});
  GraphicsState first;
  first.ctm = {scale, 0, 0, -scale, 0, static_cast<double>(pixels.area.bottom)};
  first.patternSpace = first.ctm;
  first.clip = pixels.area;
  states_.push_back(std::move(first));
  baseScale_ = scale;
}

void Context::finish(Target& target) {
  if (target.library != nullptr) cairo_destroy(target.library);
  target.library = nullptr;
}

void Context::save() {
  states_.push_back(GraphicsState(state()));
  if (target().library != nullptr) cairo_save(target().library);
}

void Context::restore() {
  if (states_.size() <= target().firstState + 1) return;
  states_.pop_back();
  if (target().library != nullptr) cairo_restore(target().library);
}

void Context::setTransform(const CGAffineTransform& ctm) { state().ctm = ctm; }
void Context::concat(const CGAffineTransform& transform) {
  state().ctm = CGAffineTransformConcat(transform, state().ctm);
}

void Context::applyClip(cairo_t* cr, const GraphicsState& of) {
  cairo_rectangle(cr, of.clip.left, of.clip.top, std::max(0, of.clip.width()), std::max(0, of.clip.height()));
  cairo_clip(cr);
}

bool Context::isTall() const { return target().pixels.area.height() > kMostRows; }

/// Replays what is saved, so that the library's context stands where this one does.
void Context::openLibrary(int top, int bottom) {
  Target& now = target();
  finish(now);
  PixelView view = now.pixels;
  view.area.top = top;
  view.area.bottom = bottom;
  view.base = now.pixels.base + (top - now.pixels.area.top) * now.pixels.stride;
  now.band = view.area;
  cairo_surface_t* surface = surfaceOver(view);
  now.library = cairo_create(surface);
  cairo_surface_destroy(surface);
  const ClipShape* before = nullptr;
  for (std::size_t i = now.firstState; i < states_.size(); ++i) {
    if (i > now.firstState) cairo_save(now.library);
    applyClip(now.library, states_[i]);
    clipToShapes(now.library, states_[i].shapes.get(), before);
    before = states_[i].shapes.get();
  }
}

/// Makes the band cover the rows, as many as it can.
void Context::useBand(const PixelRect& rows) {
  const PixelRect& all = target().pixels.area;
  if (target().library != nullptr && target().band.contains(rows)) return;
  const int around = (kMostRows - rows.height()) / 2;
  const int top = std::clamp(rows.top - std::max(0, around), all.top, all.bottom - kMostRows);
  openLibrary(top, top + kMostRows);
}

template <class F>
void Context::inBands(const PixelRect& touched, F&& draw) {
  if (!isTall()) return draw();
  const PixelRect rows = touched.intersected(state().clip);
  if (rows.isEmpty()) return;
  if (rows.height() <= kMostRows) {
    useBand(rows);
    return draw();
  }
  for (int top = rows.top; top < rows.bottom; top += kMostRows) {
    openLibrary(top, std::min(top + kMostRows, rows.bottom));
    draw();
  }
}

cairo_t* Context::libraryNearOrigin() {
  constexpr int kNear = 2048;
  const int y = boundedInt(state().ctm.ty);
  const PixelRect rows = PixelRect{state().clip.left, y - kNear, state().clip.right, y + kNear};
  if (isTall() && !rows.intersected(state().clip).isEmpty()) useBand(rows.intersected(state().clip));
  return library();
}

cairo_t* Context::library() {
  Target& now = target();
  if (now.library == nullptr && isTall()) {
    useBand(state().clip);
  } else if (now.library == nullptr) {
    // Every clip so far is a rectangle: a shaped one would have made the library's context at once.
    openLibrary(now.pixels.area.top, now.pixels.area.bottom);
  }
  const GraphicsState& s = state();
  setMatrix(now.library, s.ctm);
  cairo_set_operator(now.library, blendOperator(s.blendMode).op);
  cairo_set_antialias(now.library, s.antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
  return now.library;
}

void Context::beforeDirect() {
  if (target().library != nullptr) cairo_surface_flush(cairo_get_target(target().library));
}
void Context::afterDirect() {
  if (target().library != nullptr) cairo_surface_mark_dirty(cairo_get_target(target().library));
}
void Context::touched() { cairo_surface_flush(cairo_get_target(target().library)); }

std::optional<PixelRect> Context::wholePixels(CGRect rect) const {
  const CGAffineTransform& t = state().ctm;
  if (!isUpright(t)) return std::nullopt;
  const CGRect device = CGRectApplyAffineTransform(rect, t);
  const auto left = wholeNumber(device.minX());
  const auto top = wholeNumber(device.minY());
  const auto right = wholeNumber(device.maxX());
  const auto bottom = wholeNumber(device.maxY());
  if (!left || !top || !right || !bottom) return std::nullopt;
  return PixelRect{*left, *top, *right, *bottom};
}

bool Context::paintsDirectly() const {
  return !state().hasShapedClip && state().shadow == nullptr && state().blendMode == kCGBlendModeNormal;
}

bool Context::fillDirectly(const PixelRect& area, const Paint& paint) {
  const bool replaces =
      state().blendMode == kCGBlendModeCopy && !paint.pattern && !state().hasShapedClip && state().shadow == nullptr;
  if (!paintsDirectly() && !replaces) return false;
  const PixelRect visible = area.intersected(state().clip);
  if (visible.isEmpty()) return true;
  if (!paint.pattern) {
    Rgba color = paint.color;
    color.alpha *= state().alpha;
    const Pixel pixel = packed(color, target().pixels.order);
    beforeDirect();
    (replaces ? fillCopy : fillOver)(target().pixels, visible, pixel);
    afterDirect();
    return true;
  }
  auto& pattern = stateBehind<PatternState>(paint.pattern.get());
  const CGAffineTransform& space = state().patternSpace;
  if (!isUpright(space) || !(space.d < 0) || state().alpha * paint.color.alpha != 1) return false;
  const Tile* tile = pattern.tile(target().pixels.order);
  if (tile == nullptr) return true;
  const auto scaleX = wholeNumber(space.a * pattern.size.width / tile->surface->width());
  const auto scaleY = wholeNumber(-space.d * pattern.size.height / tile->surface->height());
  const auto left = wholeNumber(space.tx + state().patternPhase.width * space.a);
  const auto bottom = wholeNumber(space.ty + state().patternPhase.height * space.d);
  if (!scaleX || !scaleY || *scaleX < 1 || *scaleY < 1 || !left || !bottom) return false;
  beforeDirect();
  fillTiled(target().pixels, visible, *tile, {*left, *bottom, *scaleX, *scaleY});
  afterDirect();
  return true;
}

bool Context::blitDirectly(const PixelRect& area, const std::shared_ptr<const Surface>& image) {
  if (!paintsDirectly() || state().alpha != 1) return false;
  if (area.width() != image->width() || area.height() != image->height()) return false;
  const PixelRect visible = area.intersected(state().clip);
  if (visible.isEmpty()) return true;
  const auto ordered = image->inOrder(target().pixels.order, image);
  if (ordered == nullptr) return true;
  beforeDirect();
  blitOver(target().pixels, visible, ordered->view(), area.left, area.top);
  afterDirect();
  return true;
}

void Context::usePath(const PathElements& path) {
  cairo_t* cr = library();
  cairo_identity_matrix(cr);
  cairo_new_path(cr);
  addElements(cr, path);
}

double Context::usePaint(const Paint& paint) {
  cairo_t* cr = target().library;
  if (!paint.pattern) {
    Rgba color = paint.color;
    color.alpha *= state().alpha;
    setSourcePixel(cr, packed(color, target().pixels.order));
    return 1;
  }
  usePattern(stateBehind<PatternState>(paint.pattern.get()));
  return state().alpha * paint.color.alpha;
}

void Context::usePattern(PatternState& pattern) {
  cairo_t* cr = target().library;
  const Tile* tile = pattern.tile(target().pixels.order);
  if (tile == nullptr) return cairo_set_source_rgba(cr, 0, 0, 0, 0);
  const Surface& pixels = *tile->surface;
  // Tile pixels, y down, to pattern space, y up, to the device.
  const CGAffineTransform toSpace{
      pattern.size.width / pixels.width(), 0, 0, -pattern.size.height / pixels.height(), state().patternPhase.width,
      state().patternPhase.height};
  const CGAffineTransform fromDevice = CGAffineTransformInvert(CGAffineTransformConcat(toSpace, state().patternSpace));
  const cairo_matrix_t matrix = matrixOf(fromDevice);
  cairo_surface_t* surface = surfaceKeeping(tile->surface);
  cairo_pattern_t* source = cairo_pattern_create_for_surface(surface);
  cairo_surface_destroy(surface);
  cairo_pattern_set_extend(source, CAIRO_EXTEND_REPEAT);
  cairo_pattern_set_filter(source, CAIRO_FILTER_NEAREST);
  cairo_pattern_set_matrix(source, &matrix);
  cairo_identity_matrix(cr);
  cairo_set_source(cr, source);
  cairo_pattern_destroy(source);
}

void Context::useStrokeStyle() {
  constexpr cairo_line_cap_t kCaps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_SQUARE};
  constexpr cairo_line_join_t kJoins[] = {CAIRO_LINE_JOIN_MITER, CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_JOIN_BEVEL};
  cairo_t* cr = target().library;
  const GraphicsState& s = state();
  setMatrix(cr, s.ctm);
  cairo_set_line_width(cr, s.lineWidth);
  cairo_set_miter_limit(cr, s.miterLimit);
  if (s.lineCap >= 0 && s.lineCap <= kCGLineCapSquare) cairo_set_line_cap(cr, kCaps[s.lineCap]);
  if (s.lineJoin >= 0 && s.lineJoin <= kCGLineJoinBevel) cairo_set_line_join(cr, kJoins[s.lineJoin]);
  if (s.dash != nullptr) {
    cairo_set_dash(cr, s.dash->lengths.data(), static_cast<int>(s.dash->lengths.size()), s.dash->phase);
  } else {
    cairo_set_dash(cr, nullptr, 0, 0);
  }
}

void Context::paintPath(Rule rule, double alpha) {
  cairo_t* cr = target().library;
  cairo_set_fill_rule(cr, fillRule(rule));
  if (alpha == 1 && !blendOperator(state().blendMode).reachesOutside) return cairo_fill(cr);
  cairo_save(cr);
  cairo_clip(cr);
  cairo_paint_with_alpha(cr, alpha);
  cairo_restore(cr);
}

template <class F>
void Context::shadowed(const PixelRect& touched, F&& draw) {
  if (state().shadow == nullptr) return inBands(touched, draw);
  beginLayer();
  draw();
  endLayer();
}

void Context::fillElements(const PathElements& path, Rule rule) {
  if (path.isEmpty() || state().clip.isEmpty()) return;
  shadowed(coveringPixels(path.boundingBox()), [&] {
    usePath(path);
    const double alpha = usePaint(state().fill);
    paintPath(rule, alpha);
    touched();
  });
}

void Context::strokeElements(const PathElements& path) {
  if (path.isEmpty() || state().clip.isEmpty()) return;
  const double reach = state().lineWidth * state().miterLimit * std::hypot(state().ctm.a, state().ctm.b);
  shadowed(coveringPixels(path.boundingBox().insetBy(-reach, -reach)), [&] {
    usePath(path);
    usePaint(state().stroke);
    useStrokeStyle();
    cairo_stroke(target().library);
    touched();
  });
}

void Context::fillPath(Rule rule) {
  fillElements(path_, rule);
  path_.clear();
}

void Context::strokePath() {
  strokeElements(path_);
  path_.clear();
}

void Context::fillAndStrokePath(Rule rule) {
  fillElements(path_, rule);
  strokePath();
}

void Context::clipToPath(Rule rule) {
  usePath(path_);
  cairo_t* cr = target().library;
  cairo_set_fill_rule(cr, fillRule(rule));
  cairo_clip(cr);
  state().hasShapedClip = true;
  if (isTall()) {
    state().shapes =
        std::make_shared<const ClipShape>(ClipShape{path_, fillRule(rule), state().antialias, state().shapes});
  }
  state().clip = state().clip.intersected(coveringPixels(path_.boundingBox()));
  path_.clear();
}

void Context::clipToRect(CGRect rect) {
  const auto whole = wholePixels(rect);
  if (!whole) {
    path_.clear();
    path_.rect(rect, state().ctm);
    return clipToPath(Rule::kNonZero);
  }
  clipToPixels(*whole);
}

PixelRect Context::touchedPixels(CGRect rect) const {
  return coveringPixels(CGRectApplyAffineTransform(rect, state().ctm));
}

void Context::clipToPixels(const PixelRect& area) {
  state().clip = state().clip.intersected(area);
  if (cairo_t* cr = target().library; cr != nullptr) {
    cairo_identity_matrix(cr);
    cairo_new_path(cr);
    applyClip(cr, state());
  }
}

CGRect Context::clipBounds() const {
  if (state().clip.isEmpty()) return {};
  return CGRectApplyAffineTransform(asRect(state().clip), CGAffineTransformInvert(state().ctm));
}

void Context::fillRect(CGRect rect) {
  if (const auto whole = wholePixels(rect); whole && fillDirectly(*whole, state().fill)) return;
  PathElements path;
  path.rect(rect, state().ctm);
  fillElements(path, Rule::kNonZero);
}

void Context::clearRect(CGRect rect) {
  const auto whole = wholePixels(rect);
  if (whole && !state().hasShapedClip) {
    beforeDirect();
    fillCopy(target().pixels, whole->intersected(state().clip), 0);
    return afterDirect();
  }
  PathElements path;
  path.rect(rect, state().ctm);
  inBands(touchedPixels(rect), [&] {
    usePath(path);
    cairo_set_operator(target().library, CAIRO_OPERATOR_CLEAR);
    cairo_fill(target().library);
    touched();
  });
}

void Context::drawSurface(CGRect rect, const std::shared_ptr<const Surface>& image) {
  if (image == nullptr) return;
  const auto whole = state().ctm.d < 0 && state().ctm.a > 0 ? wholePixels(rect) : std::nullopt;
  if (whole && blitDirectly(*whole, image)) return;
  drawSurface(rect, image, CGRectMake(0, 0, image->width(), image->height()));
}

void Context::drawSurface(CGRect rect, const std::shared_ptr<const Surface>& image, CGRect source) {
  if (image == nullptr || rect.isEmpty() || source.isEmpty() || state().clip.isEmpty()) return;
  auto ordered = image->inOrder(target().pixels.order, image);
  if (ordered != nullptr && ordered->height() > kMostRows) {
    const CGRect shown = CGRectIntersection(rect, clipBounds());
    const double perX = source.size.width / rect.size.width;
    const double perY = source.size.height / rect.size.height;
    source = {
        {source.minX() + (shown.minX() - rect.minX()) * perX, source.minY() + (rect.maxY() - shown.maxY()) * perY},
        {shown.size.width * perX, shown.size.height * perY}};
    rect = shown;
    ordered = source.isEmpty() ? nullptr : manageable(ordered, source);
  }
  if (ordered == nullptr) return;
  shadowed(touchedPixels(rect), [&] {
    cairo_t* cr = library();
    cairo_save(cr);
    cairo_translate(cr, rect.minX(), rect.maxY());
    cairo_scale(cr, rect.size.width / source.size.width, -rect.size.height / source.size.height);
    cairo_surface_t* surface = surfaceKeeping(ordered);
    cairo_set_source_surface(cr, surface, -source.minX(), -source.minY());
    cairo_surface_destroy(surface);
    cairo_pattern_set_filter(cairo_get_source(cr), filterFor(state().interpolation));
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    cairo_new_path(cr);
    cairo_rectangle(cr, 0, 0, source.size.width, source.size.height);
    paintPath(Rule::kNonZero, state().alpha);
    cairo_restore(cr);
    touched();
  });
}

std::optional<GradientLine> Context::gradientLine(CGPoint start, CGPoint end) const {
  const CGPoint along{end.x - start.x, end.y - start.y};
  const double length = along.x * along.x + along.y * along.y;
  if (!(length > 0) || !std::isfinite(length)) return std::nullopt;
  const CGAffineTransform toUser = CGAffineTransformInvert(state().ctm);
  return GradientLine{(toUser.a * along.x + toUser.b * along.y) / length,
                      (toUser.c * along.x + toUser.d * along.y) / length,
                      ((toUser.tx - start.x) * along.x + (toUser.ty - start.y) * along.y) / length};
}

bool Context::useGradient(std::span<const GradientStop> stops, const GradientLine& line, GradientEnds ends,
                          const PixelRect& area) {
  const auto picture = Surface::make(area.width(), area.height(), target().pixels.order);
  if (picture == nullptr) return false;
  PixelView view = picture->view();
  view.area = area;
  fillGradient(view, area, stops, line, ends);
  usePicture(picture, area);
  return true;
}

void Context::usePicture(const std::shared_ptr<const Surface>& picture, const PixelRect& area) {
  cairo_t* cr = library();
  cairo_identity_matrix(cr);
  cairo_surface_t* surface = surfaceKeeping(picture);
  cairo_set_source_surface(cr, surface, area.left, area.top);
  cairo_surface_destroy(surface);
}

void Context::drawLinearGradient(std::span<const GradientStop> stops, CGPoint start, CGPoint end, GradientEnds ends) {
  const auto line = gradientLine(start, end);
  const PixelRect area = state().clip;
  if (stops.empty() || !line || area.isEmpty()) return;
  if (paintsDirectly() && state().alpha == 1) {
    beforeDirect();
    fillGradient(target().pixels, area, stops, *line, ends);
    return afterDirect();
  }
  shadowed(area, [&] {
    const PixelRect part = isTall() ? area.intersected(target().band) : area;
    if (!useGradient(stops, *line, ends, part)) return;
    cairo_paint_with_alpha(target().library, state().alpha);
    touched();
  });
}

void Context::fillRectWithGradient(CGRect rect, std::span<const GradientStop> stops, CGPoint start, CGPoint end) {
  const auto line = gradientLine(start, end);
  if (stops.empty() || !line) return;
  const auto whole = wholePixels(rect);
  if (whole && paintsDirectly() && state().alpha == 1) {
    beforeDirect();
    fillGradient(target().pixels, whole->intersected(state().clip), stops, *line, GradientEnds::kBoth);
    return afterDirect();
  }
  const PixelRect area = touchedPixels(rect).intersected(state().clip);
  if (area.isEmpty()) return;
  shadowed(area, [&] {
    PathElements path;
    path.rect(rect, state().ctm);
    const PixelRect part = isTall() ? area.intersected(target().band) : area;
    if (!useGradient(stops, *line, GradientEnds::kBoth, part)) return;
    cairo_new_path(target().library);
    addElements(target().library, path);
    paintPath(Rule::kNonZero, state().alpha);
    touched();
  });
}

void Context::drawRadialGradient(std::span<const GradientStop> stops, CGPoint startCenter, double startRadius,
                                 CGPoint endCenter, double endRadius, GradientEnds ends) {
  if (stops.empty() || state().clip.isEmpty()) return;
  shadowed(state().clip, [&] {
    cairo_t* cr = library();
    cairo_pattern_t* source = cairo_pattern_create_radial(startCenter.x, startCenter.y, std::fmax(0, startRadius),
                                                          endCenter.x, endCenter.y, std::fmax(0, endRadius));
    const bool swap = target().pixels.order == PixelOrder::kRgba;
    for (const GradientStop& stop : stops) {
      const Rgba& c = stop.color;
      cairo_pattern_add_color_stop_rgba(source, stop.location, swap ? c.blue : c.red, c.green, swap ? c.red : c.blue,
                                        c.alpha);
    }
    cairo_pattern_set_extend(source, ends == GradientEnds::kNone ? CAIRO_EXTEND_NONE : CAIRO_EXTEND_PAD);
    cairo_set_source(cr, source);
    cairo_pattern_destroy(source);
    cairo_paint_with_alpha(cr, state().alpha);
    touched();
  });
}

void Context::beginLayer() {
  const PixelRect area = state().clip.isEmpty() ? PixelRect{state().clip.left, state().clip.top, state().clip.left + 1,
                                                            state().clip.top + 1}
                                                : state().clip;
  auto pixels = Surface::make(area.width(), area.height(), target().pixels.order);
  PixelView view = pixels == nullptr ? PixelView{} : pixels->view();
  view.order = target().pixels.order;
  if (pixels != nullptr) view.area = area;
  GraphicsState inner = state();
  inner.alpha = 1;
  inner.blendMode = kCGBlendModeNormal;
  inner.shadow = nullptr;
  inner.hasShapedClip = false;
  inner.shapes = nullptr;
  inner.clip = inner.clip.intersected(view.area);
  targets_.push_back({view, std::move(pixels), states_.size(), nullptr, {}});
  states_.push_back(std::move(inner));
}

std::shared_ptr<const Surface> Context::endLayerWithoutDrawing(PixelRect& area) {
  if (targets_.size() < 2) return nullptr;
  Target ended = std::move(target());
  finish(ended);
  targets_.pop_back();
  states_.erase(states_.begin() + static_cast<std::ptrdiff_t>(ended.firstState), states_.end());
  area = ended.pixels.area;
  return std::static_pointer_cast<const Surface>(ended.owner);
}

void Context::endLayer() {
  PixelRect area;
  const auto picture = endLayerWithoutDrawing(area);
  if (picture == nullptr || state().clip.isEmpty()) return;
  if (state().shadow != nullptr) drawShadow(*picture, area, *state().shadow);
  drawPicture(picture, area);
}

void Context::drawPicture(const std::shared_ptr<const Surface>& picture, const PixelRect& area) {
  const bool direct = !state().hasShapedClip && state().blendMode == kCGBlendModeNormal && state().alpha == 1;
  if (direct) {
    beforeDirect();
    blitOver(target().pixels, area.intersected(state().clip), picture->view(), area.left, area.top);
    return afterDirect();
  }
  inBands(area, [&] {
    usePicture(picture, area);
    cairo_new_path(target().library);
    cairo_rectangle(target().library, area.left, area.top, area.width(), area.height());
    paintPath(Rule::kNonZero, state().alpha);
    touched();
  });
}

void Context::drawShadow(const Surface& picture, const PixelRect& area, const Shadow& shadow) {
  const double radius = std::fmax(0, std::fmin(kFarthestBlur, shadow.blur * baseScale_ / 2));
  const int margin = static_cast<int>(std::ceil(radius)) * 2;
  const auto blurred = blurredShape(picture, margin, radius, packed(shadow.color, target().pixels.order));
  if (blurred == nullptr) return;
  const int left = area.left - margin + boundedInt(std::nearbyint(shadow.offset.width * baseScale_));
  const int top = area.top - margin - boundedInt(std::nearbyint(shadow.offset.height * baseScale_));
  drawPicture(blurred, {left, top, left + blurred->width(), top + blurred->height()});
}

void Context::maskLayer(const PixelView& mask) {
  beforeDirect();
  multiplyByAlpha(target().pixels, target().pixels.area.intersected(mask.area), mask);
  afterDirect();
}

void Context::useFill() {
  usePaint(state().fill);
  setMatrix(target().library, state().ctm);
}

CGContextRef makeContext(const PixelView& pixels, std::shared_ptr<const void> owner, double scale) {
  if (pixels.base == nullptr || pixels.area.isEmpty()) return nullptr;
  const id object = newObject<Context>();
  stateOf<Context>(object).begin(pixels, std::move(owner), scale);
  return bridged<CGContextRef>(NSObject(object));
}

CGContextRef makeContext(const std::shared_ptr<Surface>& surface, double scale) {
  return surface == nullptr ? nullptr : makeContext(surface->view(), surface, scale);
}

}  // namespace standin
