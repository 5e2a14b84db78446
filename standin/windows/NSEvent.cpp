#include <atomic>

#include "standin/runtime/Objects.h"
#include "standin/steering/Mouse.h"
#include "standin/windows/Registration.h"
#include "standin/windows/Window.h"

using namespace cocoa;

namespace standin {

namespace {

std::atomic<NSUInteger> pressedButtons{0};
NSPoint lastMouseLocation;

/// State of an NSEvent. Only events of the mouse are made.
struct Event : ObjectState {
  NSEventType type = NSEventTypeLeftMouseDown;
  NSPoint location;
  NSUInteger modifierFlags = 0;
  double timestamp = 0;
  NSInteger windowNumber = 0;
  NSInteger eventNumber = 0;
  NSInteger clickCount = 0;
  float pressure = 0;
};

NSUInteger pressedMouseButtons(Class) { return pressedButtons; }
NSPoint mouseLocation(Class) { return lastMouseLocation; }

NSEvent mouseEvent(Class, NSEventType type, NSPoint location, NSUInteger modifierFlags, double timestamp,
                   NSInteger windowNumber, NSObject, NSInteger eventNumber, NSInteger clickCount, float pressure) {
  const id made = newObject<Event>();
  auto& event = stateOf<Event>(made);
  event.type = type;
  event.location = location;
  event.modifierFlags = modifierFlags;
  event.timestamp = timestamp;
  event.windowNumber = windowNumber;
  event.eventNumber = eventNumber;
  event.clickCount = clickCount;
  event.pressure = pressure;
  return autoreleased(Ref<NSEvent>::adopt(NSEvent(made)));
}

}  // namespace

void setPressedMouseButtons(NSUInteger buttons) { pressedButtons = buttons; }
void setMouseLocation(NSPoint onScreen) { lastMouseLocation = onScreen; }

void registerEvents() {
  ClassDefinition<Event>("NSEvent", "NSObject")
      .classMethod<"pressedMouseButtons", pressedMouseButtons>()
      .classMethod<"mouseLocation", mouseLocation>()
      .classMethod<
          "mouseEventWithType:location:modifierFlags:timestamp:windowNumber:context:eventNumber:clickCount:"
          "pressure:",
          mouseEvent>()
      .getter<"type", &Event::type>()
      .getter<"locationInWindow", &Event::location>()
      .getter<"modifierFlags", &Event::modifierFlags>()
      .getter<"timestamp", &Event::timestamp>()
      .getter<"windowNumber", &Event::windowNumber>()
      .getter<"eventNumber", &Event::eventNumber>()
      .getter<"clickCount", &Event::clickCount>()
      .getter<"pressure", &Event::pressure>()
      .registered();
}

}  // namespace standin
