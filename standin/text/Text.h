#pragma once
// Laying text out and drawing it.

#include <string>
#include <vector>

#include "cocoa/AppKit.h"
#include "standin/color/Color.h"
#include "standin/text/Font.h"

namespace standin {

/// State of an NSParagraphStyle.
struct ParagraphState : cocoa::ObjectState {
  NSTextAlignment alignment = NSTextAlignmentNatural;
  NSLineBreakMode lineBreakMode = NSLineBreakByWordWrapping;
  id copy(void*);
  id mutableCopy(void*);
  BOOL isEqual(NSObject other);
  NSUInteger hash();
};

/// A stretch of text with one look. `length` counts bytes of UTF-8.
struct TextRun {
  std::size_t length = 0;
  FontKey font;
  double kern = 0;
  Paint paint;
};

/// Text as it is to be drawn. The first paragraph style holds for all of it.
struct StyledText {
  std::string text;
  std::vector<TextRun> runs;
  NSTextAlignment alignment = NSTextAlignmentNatural;
  NSLineBreakMode lineBreakMode = NSLineBreakByWordWrapping;
};

StyledText styledText(NSString text, NSDictionary attributes);
StyledText styledText(NSAttributedString text);

/// The size of the text without any limit to its lines.
NSSize sizeOf(const StyledText& text);

/// Draws lines from the top of the rectangle down, in the current context. A rectangle of no width does not
/// limit the lines; lines that would begin below the rectangle are left out.
void drawText(const StyledText& text, NSRect rect);
/// A single line with its baseline on the rectangle's lower edge, aligned between its sides; a rectangle of no
/// width is where the line begins.
void drawOnBaseline(const StyledText& text, NSRect rect);

}  // namespace standin
