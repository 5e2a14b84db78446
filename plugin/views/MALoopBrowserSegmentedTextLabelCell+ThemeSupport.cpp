// Search buttons of the loop browser, of one row or of two.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/StringBytes.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MALoopBrowserSegmentedTextLabelCell"};

struct RowKeys {
  ThemeKey on;
  ThemeKey off;
};
constexpr RowKeys kFirstRow{key<"LoopbrowserSearchButtonTitleOn">, key<"LoopbrowserSearchButtonTitleOff">};
constexpr RowKeys kOtherRows{key<"LoopbrowserSearchButtonTitleSecondRowOn">,
                             key<"LoopbrowserSearchButtonTitleSecondRowOff">};

void recolor(NSMutableAttributedString text, NSRange range, const RowKeys& keys, bool isOn) {
  const NSColor color = ThemeUtility::shared().colorForKey(isOn ? keys.on : keys.off);
  if (!color || range.length == 0) return;
  call<"removeAttribute:range:">(text, NSForegroundColorAttributeName, range);
  text.addAttribute(NSForegroundColorAttributeName, color, range);
}

/// The rows are told apart by the runs of one colour: the first begins with the text. What was visited has its new
/// colour already, and takes no further part.
void recolorRuns(NSMutableAttributedString text, bool isOn) {
  call<"beginEditing">(text);
  const NSRange whole{0, text.length()};
  for (NSUInteger at = 0; at < whole.length;) {
    NSRange run{};
    const auto color = call<"attribute:atIndex:longestEffectiveRange:inRange:", NSObject>(
        text, NSForegroundColorAttributeName, at, &run, NSRange{at, whole.length - at});
    if (color) recolor(text, run, run.location == 0 ? kFirstRow : kOtherRows, isOn);
    if (run.length == 0) break;
    at = run.location + run.length;
  }
  call<"endEditing">(text);
}

struct AttributedString : HostOverride<kClass, "attributedString", NSObject()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLoopBrowser);

  static NSObject themed(NSCell cell) {
    const NSObject host = callHost(cell);
    const auto text = as<NSMutableAttributedString>(host);
    if (!text) return host;
    const bool isOn = cell.state() != 0;
    if (utf8Bytes(cell.stringValue()).find('\n') == std::string::npos) {
      recolor(text, {0, text.length()}, kFirstRow, isOn);
    } else {
      recolorRuns(text, isOn);
    }
    return text;
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MALoopBrowserSegmentedTextLabelCell =
    OverridesOf<kClass, AttributedString>::themedClass<>();
}  // namespace overrides

}  // namespace velura
