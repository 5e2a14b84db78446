#include "host/mixer/MAButtonNode.h"

#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

struct ButtonLook {
  std::string_view path;
  Look top;
  Look bottom;
  Look text;
};

constexpr ButtonLook kPlain{"Buttons.Default", Look::kButtonTop, Look::kButtonBottom, Look::kButtonText};
constexpr ButtonLook kBypassed{"", Look::kBypassedTop, Look::kBypassedBottom, Look::kBypassedText};
constexpr ButtonLook kButtonLooks[] = {
    kPlain,
    {"Buttons.AudioPlugIn", Look::kPlugInTop, Look::kPlugInBottom, Look::kPlugInText},
    {"Buttons.MIDIPlugIn", Look::kMidiTop, Look::kMidiBottom, Look::kPlugInText},
    {"Buttons.CustomInstrument", Look::kInstrumentTop, Look::kInstrumentBottom, Look::kPlugInText},
    {"Buttons.Instrument", Look::kInstrumentTop, Look::kInstrumentBottom, Look::kPlugInText},
    {"Buttons.Send", Look::kSendTop, Look::kSendBottom, Look::kPlugInText},
    {"Buttons.InputSegment", Look::kButtonTop, Look::kButtonBottom, Look::kButtonText},
    {"Buttons.AutomationRead", Look::kButtonTop, Look::kButtonBottom, Look::kAutomationRead},
    {"Buttons.AutomationTouch", Look::kButtonTop, Look::kButtonBottom, Look::kAutomationTouch},
    {"Buttons.AutomationLatch", Look::kButtonTop, Look::kButtonBottom, Look::kAutomationLatch},
    {"Buttons.AutomationWrite", Look::kButtonTop, Look::kButtonBottom, Look::kAutomationWrite},
};

const ButtonLook& lookFor(const std::string& path, bool on) {
  if (!on) return kBypassed;
  for (const ButtonLook& row : kButtonLooks) {
    if (row.path == path) return row;
  }
  return kPlain;
}

constexpr double kRadius = 4;

}  // namespace

id MAButtonNode::init() {
  superSend<MAButtonNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  stateOf<MANode>(self).state = 1;
  return self;
}

void MAButtonNode::drawRect(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  const ButtonLook& button = lookFor(toStdString(node.assetSetPath), node.state != 0);
  const Painter painter(context);
  painter.body(rect, kRadius, look(button.top), look(button.bottom), look(Look::kButtonEdge));
  painter.text(node.title, rect.insetBy(4, 0), look(button.text), {.size = 9.5, .weight = 0.23});
}

void defineMAButtonNode() {
  ClassDefinition<MAButtonNode>("MAButtonNode", "MANode")
      .method<"init", &MAButtonNode::init>()
      .method<"drawRect:inContext:", &MAButtonNode::drawRect>()
      .registered();
}

}  // namespace host
