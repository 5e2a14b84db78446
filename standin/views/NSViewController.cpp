#include "standin/views/Registration.h"
#include "standin/views/View.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSViewController. It comes between its view and the view's superview as a responder.
struct ViewController : ObjectState {
  Ref<NSView> loaded;
  Ref<NSString> title;
  Ref<NSObject> representedObject;

  ~ViewController() { release(); }

  NSView view() {
    if (!loaded) {
      call<"loadView">(self);
      call<"viewDidLoad">(self);
    }
    return loaded;
  }
  void setView(NSView view) {
    release();
    loaded = view;
    if (!loaded) return;
    ViewState& state = stateOf<ViewState>(loaded);
    state.controller = self;
    auto& responder = stateOf<ResponderState>(loaded);
    stateOf<ResponderState>(self).next = responder.next;
    responder.next = self;
  }
  void release() {
    if (!loaded || stateOf<ViewState>(loaded).controller != self) return;
    stateOf<ViewState>(loaded).controller = nullptr;
    stateOf<ResponderState>(loaded).next = stateOf<ViewState>(loaded).superview;
  }
  void loadView() { setView(make<NSView>()); }
  void viewDidLoad() {}
  BOOL isViewLoaded() { return static_cast<BOOL>(static_cast<bool>(loaded)); }
};

}  // namespace

void registerViewControllers() {
  ClassDefinition<ViewController>("NSViewController", "NSResponder")
      .method<"view", &ViewController::view>()
      .method<"setView:", &ViewController::setView>()
      .method<"loadView", &ViewController::loadView>()
      .method<"viewDidLoad", &ViewController::viewDidLoad>()
      .method<"isViewLoaded", &ViewController::isViewLoaded>()
      .property<"title", "setTitle:", &ViewController::title>()
      .property<"representedObject", "setRepresentedObject:", &ViewController::representedObject>()
      .registered();
}

}  // namespace standin
