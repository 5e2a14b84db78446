#include <optional>
#include <vector>

#include "standin/runtime/Objects.h"
#include "standin/steering/Desk.h"
#include "standin/windows/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr NSUInteger kSwitchButton = 3;
constexpr NSSize kPanelSize{420, 160};
constexpr NSSize kButtonSize{96, 24};
constexpr double kMargin = 20;

AlertAnswer& userAnswer() {
  static auto* answer = new AlertAnswer();  // outlives every late alert
  return *answer;
}

/// State of an NSAlert. Its panel holds the buttons; the texts are kept, not laid out.
struct Alert : ObjectState {
  Ref<NSPanel> panel;
  std::vector<Ref<NSButton>> buttons;
  Ref<NSButton> suppression;
  Ref<NSString> messageText;
  Ref<NSString> informativeText;
  NSAlertStyle style = NSAlertStyleWarning;
  bool showsSuppression = false;
  std::optional<NSInteger> ended;

  id init() {
    panel = makeWith<NSPanel, "initWithContentRect:styleMask:backing:defer:">(
        NSRect{{}, kPanelSize}, NSWindowStyleMaskTitled, NSBackingStoreBuffered, BOOL(NO));
    const double width = kPanelSize.width - 2 * kMargin;
    suppression = NSButton::withFrame({{kMargin, 2 * kMargin + kButtonSize.height}, {width, kButtonSize.height}});
    suppression->setTitle(literal<"Do not show this message again">());
    call<"setButtonType:">(suppression.get(), kSwitchButton);
    return self;
  }
  NSButton addButton(NSString title) {
    const auto index = static_cast<double>(buttons.size() + 1);
    const double right = kPanelSize.width - kMargin;
    const auto button = NSButton::withFrame({{right - index * kButtonSize.width, kMargin}, kButtonSize});
    button->setTitle(title);
    button->setTag(NSAlertFirstButtonReturn + static_cast<NSInteger>(buttons.size()));
    button->setTarget(NSObject(self));
    button->setAction(selector<"endWithButton:">());
    panel->contentView().addSubview(button);
    buttons.push_back(button);
    return button;
  }
  void endWithButton(NSButton button) { ended = button.tag(); }
  NSArray buttonArray() {
    std::vector<id> objects;
    for (const auto& button : buttons) objects.push_back(button.get().object);
    return NSArray::arrayWithObjects(objects.data(), objects.size());
  }
  void setMessage(NSString text) { messageText = text; }
  void setInformation(NSString text) { informativeText = text; }
  NSString message() { return messageText ? messageText.get() : literal<"">(); }
  NSString information() { return informativeText ? informativeText.get() : literal<"">(); }
  NSWindow window() { return panel.get(); }
  void setShowsSuppression(BOOL shows) {
    showsSuppression = shows != 0;
    if (showsSuppression) {
      panel->contentView().addSubview(suppression);
    } else {
      suppression->removeFromSuperview();
    }
  }

  NSInteger runModal() {
    const Ref<NSAlert> kept = NSAlert(self);
    if (buttons.empty()) addButton(literal<"OK">());
    ended.reset();
    panel->orderFront({});
    const NSUInteger answer = userAnswer() ? userAnswer()(NSAlert(self)) : 0;
    panel->orderOut({});
    if (ended) return *ended;
    return NSAlertFirstButtonReturn + static_cast<NSInteger>(answer < buttons.size() ? answer : 0);
  }
};

}  // namespace

void setAlertAnswer(AlertAnswer answer) { userAnswer() = std::move(answer); }

void registerAlerts() {
  ClassDefinition<Alert>("NSAlert", "NSObject")
      .method<"init", &Alert::init>()
      .method<"addButtonWithTitle:", &Alert::addButton>()
      .method<"endWithButton:", &Alert::endWithButton>()
      .method<"buttons", &Alert::buttonArray>()
      .method<"messageText", &Alert::message>()
      .method<"setMessageText:", &Alert::setMessage>()
      .method<"informativeText", &Alert::information>()
      .method<"setInformativeText:", &Alert::setInformation>()
      .property<"alertStyle", "setAlertStyle:", &Alert::style>()
      .getter<"showsSuppressionButton", &Alert::showsSuppression>()
      .method<"setShowsSuppressionButton:", &Alert::setShowsSuppression>()
      .getter<"suppressionButton", &Alert::suppression>()
      .method<"window", &Alert::window>()
      .method<"runModal", &Alert::runModal>()
      .registered();
}

}  // namespace standin
