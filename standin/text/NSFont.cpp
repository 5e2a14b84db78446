#include <pango/pangocairo.h>

#include <cmath>
#include <iterator>
#include <map>

#include "standin/text/Font.h"
#include "standin/text/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr const char* kFamily = "Inter";
constexpr double kSystemSize = 13;
constexpr double kSmallSize = 11;
constexpr double kLabelSize = 10;

struct Weight {
  CGFloat platform;
  int font;
  const char* name;
};
constexpr Weight kWeights[] = {
    {NSFontWeightUltraLight, 200, "Ultralight"},
    {NSFontWeightThin, 100, "Thin"},
    {NSFontWeightLight, 300, "Light"},
    {NSFontWeightRegular, 400, "Regular"},
    {NSFontWeightMedium, 500, "Medium"},
    {NSFontWeightSemibold, 600, "Semibold"},
    {NSFontWeightBold, 700, "Bold"},
    {NSFontWeightHeavy, 800, "Heavy"},
    {NSFontWeightBlack, 900, "Black"},
};

int nearestWeight(CGFloat platform) {
  const Weight* nearest = &kWeights[3];
  for (const Weight& weight : kWeights) {
    if (std::abs(weight.platform - platform) < std::abs(nearest->platform - platform)) nearest = &weight;
  }
  return nearest->font;
}

double soundSize(CGFloat size) {
  constexpr double kLargest = 1000;
  return size > 0 ? std::fmin(size, kLargest) : kSystemSize;
}

void measure(FontState& font) {
  PangoFontDescription* description = describe(font.key);
  PangoFontMetrics* metrics = pango_context_get_metrics(textContext(), description, nullptr);
  font.ascender = pango_units_to_double(pango_font_metrics_get_ascent(metrics));
  font.descender = -pango_units_to_double(pango_font_metrics_get_descent(metrics));
  constexpr double kWidestInAverages = 2;
  font.widest = pango_units_to_double(pango_font_metrics_get_approximate_char_width(metrics)) * kWidestInAverages;
  pango_font_metrics_unref(metrics);
  pango_font_description_free(description);
}

/// Equal fonts are one object while the cache remembers them.
NSFont fontFor(const FontKey& key) {
  constexpr std::size_t kRemembered = 64;
  static auto* fonts = new std::map<FontKey, Ref<NSFont>>();  // outlives every late release
  if (const auto found = fonts->find(key); found != fonts->end()) return found->second;
  if (fonts->size() >= kRemembered) {
    // Callers may hold handles that nothing else keeps: the old fonts leave with the pool.
    for (auto& [old, font] : *fonts) autoreleased(std::move(font));
    fonts->clear();
  }
  const id made = newObject<FontState>();
  auto& state = stateOf<FontState>(made);
  state.key = key;
  measure(state);
  return fonts->emplace(key, Ref<NSFont>::adopt(NSFont(made))).first->second;
}

NSFont systemFont(Class, CGFloat size) { return fontFor({soundSize(size), 400, false}); }
NSFont weightedFont(Class, CGFloat size, CGFloat weight) {
  return fontFor({soundSize(size), nearestWeight(weight), false});
}
NSFont boldFont(Class, CGFloat size) { return fontFor({soundSize(size), 700, false}); }
NSFont digitFont(Class, CGFloat size, CGFloat weight) {
  return fontFor({soundSize(size), nearestWeight(weight), true});
}
CGFloat systemFontSize(Class) { return kSystemSize; }
CGFloat smallSystemFontSize(Class) { return kSmallSize; }
CGFloat labelFontSize(Class) { return kLabelSize; }

}  // namespace

NSString FontState::fontName() {
  for (const Weight& weight : kWeights) {
    if (weight.font == key.weight) return string(std::string(kFamily) + "-" + weight.name);
  }
  return literal<"Inter">();
}

NSString FontState::description() { return string(toStdString(fontName()) + " " + std::to_string(key.size) + " pt."); }

BOOL FontState::isEqual(NSObject other) {
  const auto* font = stateIfKind<FontState>(other);
  return static_cast<BOOL>(font != nullptr && font->key == key);
}

NSUInteger FontState::hash() {
  return static_cast<NSUInteger>(key.size * 64) ^ static_cast<NSUInteger>(key.weight) << 16U;
}

FontKey fontKeyOf(NSFont font) {
  const auto* state = stateIfKind<FontState>(font);
  return state == nullptr ? FontKey{12, 400, false} : state->key;
}

PangoContext* textContext() {
  static PangoContext* const shared = [] {
    PangoFontMap* map = pango_cairo_font_map_new();
    constexpr double kPointsPerInch = 72;
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map), kPointsPerInch);
    PangoContext* context = pango_font_map_create_context(map);
    g_object_unref(map);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("en"));
    return context;
  }();
  return shared;
}

PangoFontDescription* describe(const FontKey& key) {
  PangoFontDescription* description = pango_font_description_new();
  pango_font_description_set_family_static(description, kFamily);
  pango_font_description_set_weight(description, static_cast<PangoWeight>(key.weight));
  pango_font_description_set_absolute_size(description, key.size * PANGO_SCALE);
  return description;
}

void registerFonts() {
  ClassDefinition<FontState>("NSFont", "NSObject")
      .classMethod<"systemFontOfSize:", systemFont>()
      .classMethod<"systemFontOfSize:weight:", weightedFont>()
      .classMethod<"boldSystemFontOfSize:", boldFont>()
      .classMethod<"monospacedDigitSystemFontOfSize:weight:", digitFont>()
      .classMethod<"labelFontOfSize:", systemFont>()
      .classMethod<"systemFontSize", systemFontSize>()
      .classMethod<"smallSystemFontSize", smallSystemFontSize>()
      .classMethod<"labelFontSize", labelFontSize>()
      .method<"pointSize", &FontState::pointSize>()
      .getter<"ascender", &FontState::ascender>()
      .getter<"descender", &FontState::descender>()
      .method<"boundingRectForFont", &FontState::boundingRect>()
      .method<"fontName", &FontState::fontName>()
      .method<"description", &FontState::description>()
      .method<"isEqual:", &FontState::isEqual>()
      .method<"hash", &FontState::hash>()
      .method<"copyWithZone:", &FontState::copy>()
      .registered();
}

}  // namespace standin
