// What a colour does to the current context.

#include "standin/drawing/Context.h"
#include "standin/drawing/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

void setFill(NSColor color) {
  if (Context* context = currentContext()) context->state().fill = paintOf(color);
}
void setStroke(NSColor color) {
  if (Context* context = currentContext()) context->state().stroke = paintOf(color);
}
void set(NSColor color) {
  setFill(color);
  setStroke(color);
}

}  // namespace

void registerColorDrawing() {
  CategoryDefinition("NSColor").method<"set", set>().method<"setFill", setFill>().method<"setStroke", setStroke>();
}

}  // namespace standin
