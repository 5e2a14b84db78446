#include <map>
#include <string>

#include "cocoa/AppKit.h"
#include "standin/runtime/Objects.h"
#include "standin/windows/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr std::string_view kNames[] = {"NSAppearanceNameAqua", "NSAppearanceNameDarkAqua",
                                       "NSAppearanceNameVibrantDark", "NSAppearanceNameVibrantLight"};

/// State of an NSAppearance: nothing here is drawn differently for it.
struct Appearance : ObjectState {
  Ref<NSString> name;
};

/// One object for each name that the platform knows; nil for others.
NSAppearance appearanceNamed(Class, NSString name) {
  static auto* appearances = new std::map<std::string, Ref<NSAppearance>>();  // outlives every late release
  const std::string text = toStdString(name);
  if (std::find(std::begin(kNames), std::end(kNames), text) == std::end(kNames)) return {};
  Ref<NSAppearance>& slot = (*appearances)[text];
  if (!slot) {
    slot = Ref<NSAppearance>::adopt(NSAppearance(newObject<Appearance>()));
    stateOf<Appearance>(slot).name = makeString(text);
  }
  return slot;
}

}  // namespace

void registerAppearances() {
  ClassDefinition<Appearance>("NSAppearance", "NSObject")
      .classMethod<"appearanceNamed:", appearanceNamed>()
      .getter<"name", &Appearance::name>()
      .registered();
}

}  // namespace standin
