#include "plugin/hostapi/HostVersion.h"

#include "cocoa/Foundation.h"

namespace velura {
namespace {

using namespace cocoa;

NSString hostVersion() {
  static const NSString version =
      Ref<NSString>(
          as<NSString>(NSBundle::mainBundle().infoDictionary().objectForKey(literal<"CFBundleShortVersionString">())))
          .detach();
  return version;
}

}  // namespace

bool isHostEqualOrNewerThan(std::string_view version) {
  return hostVersion() &&
         send<BOOL>(hostVersion().object, selector<"isEqualOrNewerThanVersion:">(), string(version)) != 0;
}

bool isHostOlderThan(std::string_view version) {
  return hostVersion() && send<BOOL>(hostVersion().object, selector<"isOlderThanVersion:">(), string(version)) != 0;
}

}  // namespace velura
