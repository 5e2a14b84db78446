#include "standin/runtime/Objects.h"
#include "standin/steering/Desk.h"
#include "standin/windows/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

std::function<void(const std::string&)>& toldOfAddresses() {
  static auto* told = new std::function<void(const std::string&)>();
  return *told;
}

/// State of the NSWorkspace.
struct Workspace : ObjectState {
  BOOL openURL(NSURL url) {
    if (!url) return NO;
    if (toldOfAddresses()) toldOfAddresses()(toStdString(url.absoluteString()));
    return YES;
  }
};

NSWorkspace sharedWorkspace(Class) {
  static const id shared = newObject<Workspace>();
  return NSWorkspace(shared);
}

}  // namespace

void setOpenedURL(std::function<void(const std::string& address)> told) { toldOfAddresses() = std::move(told); }

void registerWorkspaces() {
  ClassDefinition<Workspace>("NSWorkspace", "NSObject")
      .classMethod<"sharedWorkspace", sharedWorkspace>()
      .method<"openURL:", &Workspace::openURL>()
      .registered();
}

}  // namespace standin
