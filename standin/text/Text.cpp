#include "standin/text/Text.h"

#include <pango/pangocairo.h>

#include <cmath>
#include <map>
#include <memory>
#include <tuple>

#include "standin/drawing/Context.h"

using namespace cocoa;

namespace standin {

namespace {

struct Unref {
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};
using Layout = std::shared_ptr<PangoLayout>;

TextRun runFor(NSDictionary attributes, std::size_t length) {
  TextRun run;
  run.length = length;
  run.font = fontKeyOf(cast<NSFont>(attributes.objectForKey(NSFontAttributeName)));
  run.kern = as<NSNumber>(attributes.objectForKey(NSKernAttributeName)).doubleValue();
  const auto color = cast<NSColor>(attributes.objectForKey(NSForegroundColorAttributeName));
  if (color) run.paint = paintOf(color);
  return run;
}

void takeParagraph(StyledText& text, NSDictionary attributes) {
  const auto* style = stateIfKind<ParagraphState>(attributes.objectForKey(NSParagraphStyleAttributeName));
  if (style == nullptr) return;
  text.alignment = style->alignment;
  text.lineBreakMode = style->lineBreakMode;
}

PangoAttribute* spanning(PangoAttribute* attribute, std::size_t from, std::size_t length) {
  attribute->start_index = static_cast<guint>(from);
  attribute->end_index = static_cast<guint>(from + length);
  return attribute;
}

/// Font, spacing and figures of every run. Colours are no part of a layout, so that layouts serve any.
PangoAttrList* attributesOf(const StyledText& text) {
  PangoAttrList* list = pango_attr_list_new();
  std::size_t from = 0;
  for (const TextRun& run : text.runs) {
    PangoFontDescription* font = describe(run.font);
    pango_attr_list_insert(list, spanning(pango_attr_font_desc_new(font), from, run.length));
    pango_font_description_free(font);
    if (run.kern != 0) {
      const int spacing = static_cast<int>(std::fmax(-1000, std::fmin(1000, run.kern)) * PANGO_SCALE);
      pango_attr_list_insert(list, spanning(pango_attr_letter_spacing_new(spacing), from, run.length));
    }
    if (run.font.monospacedDigits) {
      pango_attr_list_insert(list, spanning(pango_attr_font_features_new("tnum=1"), from, run.length));
    }
    from += run.length;
  }
  return list;
}

PangoEllipsizeMode ellipsisFor(NSLineBreakMode mode) {
  switch (mode) {
    case NSLineBreakByTruncatingHead:
      return PANGO_ELLIPSIZE_START;
    case NSLineBreakByTruncatingMiddle:
      return PANGO_ELLIPSIZE_MIDDLE;
    case NSLineBreakByTruncatingTail:
      return PANGO_ELLIPSIZE_END;
    default:
      return PANGO_ELLIPSIZE_NONE;
  }
}

Layout newLayout(const StyledText& text, int width) {
  PangoLayout* layout = pango_layout_new(textContext());
  pango_layout_set_text(layout, text.text.data(), static_cast<int>(text.text.size()));
  PangoAttrList* attributes = attributesOf(text);
  pango_layout_set_attributes(layout, attributes);
  pango_attr_list_unref(attributes);
  pango_layout_set_auto_dir(layout, TRUE);
  if (width >= 0) {
    pango_layout_set_width(layout, width);
    pango_layout_set_wrap(layout,
                          text.lineBreakMode == NSLineBreakByCharWrapping ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
    pango_layout_set_ellipsize(layout, ellipsisFor(text.lineBreakMode));
    const PangoAlignment alignment = text.alignment == NSTextAlignmentCenter  ? PANGO_ALIGN_CENTER
                                     : text.alignment == NSTextAlignmentRight ? PANGO_ALIGN_RIGHT
                                                                              : PANGO_ALIGN_LEFT;
    pango_layout_set_alignment(layout, alignment);
    pango_layout_set_justify(layout, text.alignment == NSTextAlignmentJustified ? TRUE : FALSE);
  }
  return {layout, Unref()};
}

/// Layouts of one look are remembered: the same few labels are drawn again and again.
Layout layoutFor(const StyledText& text, int width) {
  using Key = std::tuple<std::string, FontKey, double, int, NSTextAlignment, NSLineBreakMode>;
  constexpr std::size_t kRemembered = 512;
  constexpr std::size_t kLongest = 256;
  static auto* layouts = new std::map<Key, Layout>();
  if (text.runs.size() != 1 || text.text.size() > kLongest) return newLayout(text, width);
  const TextRun& run = text.runs.front();
  Key key(text.text, run.font, run.kern, width, width < 0 ? NSTextAlignmentLeft : text.alignment,
          width < 0 ? NSLineBreakByClipping : text.lineBreakMode);
  if (const auto found = layouts->find(key); found != layouts->end()) return found->second;
  if (layouts->size() >= kRemembered) layouts->clear();
  return layouts->emplace(std::move(key), newLayout(text, width)).first->second;
}

NSSize sizeOf(PangoLayout* layout) {
  int width = 0;
  int height = 0;
  pango_layout_get_size(layout, &width, &height);
  return {pango_units_to_double(width), pango_units_to_double(height)};
}

/// Draws one line's runs, each in its own colour, with the baseline's left end at (x, y) of a y-down space.
void drawLine(Context& context, cairo_t* cr, const StyledText& text, PangoLayoutLine* line, double x, double y) {
  for (GSList* each = line->runs; each != nullptr; each = each->next) {
    auto* glyphs = static_cast<PangoGlyphItem*>(each->data);
    std::size_t end = 0;
    const Paint* paint = nullptr;
    for (const TextRun& run : text.runs) {
      end += run.length;
      paint = &run.paint;
      if (static_cast<std::size_t>(glyphs->item->offset) < end) break;
    }
    if (paint != nullptr) context.state().fill = *paint;
    context.useFill();
    cairo_new_path(cr);
    cairo_move_to(cr, x, y);
    // Outlines rather than cached glyph pictures: those only stand on whole pixels.
    pango_cairo_glyph_string_path(cr, glyphs->item->analysis.font, glyphs->glyphs);
    cairo_fill(cr);
    x += pango_units_to_double(pango_glyph_string_get_width(glyphs->glyphs));
  }
}

/// Runs `draw` with the drawing library's context turned so that text stands upright: y down, the origin at
/// `origin` of the current context's space.
template <class F>
void upright(NSPoint origin, F&& draw) {
  Context* context = currentContext();
  if (context == nullptr || context->state().clip.isEmpty()) return;
  const bool flipped = NSGraphicsContext::currentContext().isFlipped();
  const SavedState saved(*context);
  const auto drawTurned = [&] {
    context->concat({1, 0, 0, flipped ? 1.0 : -1.0, origin.x, origin.y});
    draw(*context, context->libraryNearOrigin());
    context->touched();
  };
  if (context->state().shadow == nullptr) return drawTurned();
  context->beginLayer();
  drawTurned();
  context->endLayer();
}

/// How far from the left a line begins in `room`; at the left where nothing limits it.
double indentOf(NSTextAlignment alignment, double room, double width) {
  if (!(room > 0)) return 0;
  if (alignment == NSTextAlignmentCenter) return (room - width) / 2;
  return alignment == NSTextAlignmentRight ? room - width : 0;
}

}  // namespace

StyledText styledText(NSString text, NSDictionary attributes) {
  StyledText styled;
  styled.text = toStdString(text);
  styled.runs.push_back(runFor(attributes, styled.text.size()));
  takeParagraph(styled, attributes);
  return styled;
}

StyledText styledText(NSAttributedString text) {
  StyledText styled;
  const NSString whole = text.string();
  const NSUInteger length = whole.length();
  for (NSUInteger at = 0; at < length;) {
    NSRange range{at, length - at};
    const auto attributes = call<"attributesAtIndex:effectiveRange:", NSDictionary>(text, at, &range);
    const NSUInteger end = std::max(at + 1, std::min(range.location + range.length, length));
    const std::string part = toStdString(call<"substringWithRange:", NSString>(whole, NSRange{at, end - at}));
    if (at == 0) takeParagraph(styled, attributes);
    styled.runs.push_back(runFor(attributes, part.size()));
    styled.text += part;
    at = end;
  }
  return styled;
}

NSSize sizeOf(const StyledText& text) { return sizeOf(layoutFor(text, -1).get()); }

void drawText(const StyledText& text, NSRect rect) {
  if (text.text.empty()) return;
  Layout layout = layoutFor(text, -1);
  const NSSize natural = sizeOf(layout.get());
  const bool limited = rect.size.width > 0;
  if (limited && text.lineBreakMode != NSLineBreakByClipping && natural.width > rect.size.width) {
    layout = layoutFor(text, static_cast<int>(std::fmin(rect.size.width, 1e5) * PANGO_SCALE));
  }
  const bool aligned = pango_layout_get_width(layout.get()) >= 0;
  const double indent = aligned ? 0 : indentOf(text.alignment, rect.size.width, natural.width);
  const bool flipped = NSGraphicsContext::currentContext().isFlipped();
  const NSPoint top{rect.minX(), flipped ? rect.minY() : rect.maxY()};
  upright(top, [&](Context& context, cairo_t* cr) {
    PangoLayoutIter* line = pango_layout_get_iter(layout.get());
    do {
      PangoRectangle logical;
      pango_layout_iter_get_line_extents(line, nullptr, &logical);
      if (limited && logical.y > 0 && pango_units_to_double(logical.y) >= rect.size.height) break;
      drawLine(context, cr, text, pango_layout_iter_get_line_readonly(line), indent + pango_units_to_double(logical.x),
               pango_units_to_double(pango_layout_iter_get_baseline(line)));
    } while (pango_layout_iter_next_line(line) != FALSE);
    pango_layout_iter_free(line);
  });
}

void drawOnBaseline(const StyledText& text, NSRect rect) {
  if (text.text.empty()) return;
  const Layout layout = layoutFor(text, -1);
  const double indent = indentOf(text.alignment, rect.size.width, sizeOf(layout.get()).width);
  upright({rect.minX() + indent, rect.minY()}, [&](Context& context, cairo_t* cr) {
    drawLine(context, cr, text, pango_layout_get_line_readonly(layout.get(), 0), 0, 0);
  });
}

}  // namespace standin
