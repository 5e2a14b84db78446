#include "plugin/loader/HostVersion.h"

#include "cocoa/Foundation.h"

namespace velura {
namespace {

using namespace cocoa;

const Ref<NSString>& hostVersion() {
  static const Ref<NSString> version =
      as<NSString>(NSBundle::mainBundle().infoDictionary().objectForKey(literal<"CFBundleShortVersionString">()));
  return version;
}

}  // namespace

bool isHostEqualOrNewerThan(std::string_view version) {
  return hostVersion() &&
         send<BOOL>(hostVersion().get().object, selector<"isEqualOrNewerThanVersion:">(), string(version)) != 0;
}

bool isHostOlderThan(std::string_view version) {
  return !hostVersion() ||
         send<BOOL>(hostVersion().get().object, selector<"isOlderThanVersion:">(), string(version)) != 0;
}

}  // namespace velura
