#include "host/mixer/PlugIn.h"

#include "cocoa/Call.h"

namespace host {
namespace {

using namespace cocoa;

template <class State>
Ref<NSObject> newObject() {
  return Ref<NSObject>::adopt(NSObject(call<"init", id>(call<"alloc", id>(DefinedClass<State>::cls))));
}

}  // namespace

Ref<NSObject> representedPlugIn(const ComponentCodes& codes) {
  const Ref<NSObject> made = newObject<CLgPlugIn>();
  stateOf<CLgPlugIn>(made.get()).codes = codes;
  return made;
}

Ref<NSObject> representedSend(SendMode mode) {
  const Ref<NSObject> made = newObject<CLgSend>();
  stateOf<CLgSend>(made.get()).mode = mode;
  return made;
}

void definePlugIns() {
  ClassDefinition<CLgPlugIn>("CLgPlugIn", "NSObject")
      .method<"type", &CLgPlugIn::type>()
      .method<"subType", &CLgPlugIn::subType>()
      .method<"manufacturer", &CLgPlugIn::manufacturer>()
      .registered();
  ClassDefinition<CLgSend>("CLgSend", "NSObject").method<"type", &CLgSend::type>().registered();
}

}  // namespace host
