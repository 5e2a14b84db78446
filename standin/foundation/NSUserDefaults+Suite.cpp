// User defaults of a suite: the domain of that name, searched before all others and written to.

#include "standin/foundation/Registration.h"
#include "standin/runtime/Objects.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of a suite's defaults. The domain's values are kept by Foundation's own defaults object.
struct SuiteDefaults : ObjectState {
  Ref<NSString> suite;

  static NSUserDefaults shared() { return NSUserDefaults::standardUserDefaults(); }
  NSDictionary domain() { return call<"persistentDomainForName:", NSDictionary>(shared(), suite.get()); }

  NSObject objectForKey(NSString key) {
    const NSObject value = domain().objectForKey(key);
    return value ? value : shared().objectForKey(key);
  }
  void setObject(NSObject value, NSString key) {
    if (!key) return;
    const auto changed =
        NSMutableDictionary::dictionaryWithDictionary(domain() ? domain() : NSDictionary::dictionary());
    if (value) {
      changed.setObject(value, key);
    } else {
      changed.removeObjectForKey(key);
    }
    call<"setPersistentDomain:forName:">(shared(), changed, suite.get());
  }
  void removeObject(NSString key) { setObject({}, key); }
  BOOL synchronize() { return call<"synchronize", BOOL>(shared()); }
  NSDictionary dictionaryRepresentation() {
    const auto all =
        NSMutableDictionary::dictionaryWithDictionary(call<"dictionaryRepresentation", NSDictionary>(shared()));
    if (const NSDictionary own = domain()) call<"addEntriesFromDictionary:">(all, own);
    return all;
  }
};

/// A nil name means the application's own defaults.
id initWithSuiteName(NSUserDefaults self, NSString name) {
  cocoa::send<void>(self.object, selector<"release">());
  if (!name) return send<id>(SuiteDefaults::shared().object, selector<"retain">());
  const id made = newObject<SuiteDefaults>();
  stateOf<SuiteDefaults>(made).suite = Ref<NSString>::adopt(call<"copy", NSString>(name));
  return made;
}

}  // namespace

void registerUserDefaultsSuites() {
  ClassDefinition<SuiteDefaults>("NSUserDefaultsOfSuite", "NSUserDefaults")
      .method<"objectForKey:", &SuiteDefaults::objectForKey>()
      .method<"setObject:forKey:", &SuiteDefaults::setObject>()
      .method<"removeObjectForKey:", &SuiteDefaults::removeObject>()
      .method<"synchronize", &SuiteDefaults::synchronize>()
      .method<"dictionaryRepresentation", &SuiteDefaults::dictionaryRepresentation>()
      .registered();
  CategoryDefinition("NSUserDefaults").method<"initWithSuiteName:", initWithSuiteName>();
}

}  // namespace standin
