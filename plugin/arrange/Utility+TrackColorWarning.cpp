#include "plugin/arrange/Utility+TrackColorWarning.h"

#include "cocoa/ClassDefinition.h"
#include "cocoa/Dispatch.h"
#include "cocoa/Exception.h"
#include "plugin/hostapi/ArrangeView.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kHelpAddress{"https://velura.example/help/track-colours"};

NSString skipWarningKey() { return literal<"SkipTrackColorWarning">(); }

void runAlert() {
  const auto alert = make<NSAlert>();
  alert->addButtonWithTitle(literal<"Close">());
  const NSButton help = alert->addButtonWithTitle(literal<"Help">());
  alert->setMessageText(literal<"Velura Use Track Color Warning">());
  alert->setInformativeText(
      literal<"Track header color not enabled in this Logic Pro Project. Please navigate to one of the track headers "
              "in your project and right click onto track header in Arrange Area > Track Header Components > Track "
              "Color Bars, to activate track colors.">());
  alert->setAlertStyle(NSAlertStyleWarning);
  alert->window().setAppearance(NSAppearance::appearanceNamed(NSAppearanceNameVibrantDark));
  alert->setShowsSuppressionButton(true);
  alert->suppressionButton().setTitle(literal<"Don't show this again">());
  help.setTarget(call<"sharedInstance", NSObject>(classNamed("Utility")));
  help.setAction(selector<"showUseTrackColorHelp">());
  static_cast<void>(alert->runModal());
  if (alert->suppressionButton().state() != NSControlStateValueOn) return;
  const NSUserDefaults defaults = NSUserDefaults::standardUserDefaults();
  defaults.setBool(true, skipWarningKey());
  defaults.synchronize();
}

bool readsColorBarVisible(NSObject arrangeView) {
  const NSDictionary configuration = headerConfigurationOf(arrangeView);
  const auto shows = cast<NSArray>(configuration.objectForKey(literal<"trackelemShow">()));
  return callBool<"boolValue">(shows.objectAtIndex(kColorBarElement).object);
}

/// nil when the document shows none, or cannot be asked.
NSObject arrangeViewOf(NSObject document) {
  if (!respondsTo<"unilibDocManager">(document)) return {};
  const auto manager = call<"unilibDocManager", NSObject>(document);
  if (!respondsTo<"visibleUnilibViews">(manager)) return {};
  for (const NSObject view : items(as<NSArray>(call<"visibleUnilibViews", NSObject>(manager)))) {
    if (view.className().isEqualToString(literal<"CLgArrangeView">())) return view;
  }
  return {};
}

BOOL colorBarVisible(Class /*self*/, NSObject arrangeView) { return BOOL(isArrangeColorBarVisible(arrangeView)); }
void showAlert(Class /*self*/) { showArrangeUseTrackColorAlert(); }
void showHelp(NSObject /*self*/) {
  static_cast<void>(NSWorkspace::sharedWorkspace().openURL(NSURL::URLWithString(literal<kHelpAddress>())));
}

/// A document that was opened without colour bars under a theme that needs them.
void handleDocumentDidOpen(NSObject theme, NSNotification notification) {
  const auto arrangeView =
      foundBy([&] { return arrangeViewOf(notification.userInfo().objectForKey(literal<"CLgSongDocument">())); });
  if (!arrangeView || isArrangeColorBarVisible(arrangeView)) return;
  if (stateOf<ThemeUtility>(theme).useTrackColorAsArrangeStripBackground) showArrangeUseTrackColorAlert();
}

void observe(NSObject theme) {
  NSNotificationCenter::defaultCenter().addObserver(theme, selector<"handleDocumentDidOpen:">(),
                                                    literal<"CLgDocumentControllerNotification_documentDidOpen">(),
                                                    NSObject());
}

}  // namespace

bool isArrangeColorBarVisible(NSObject arrangeView) {
  bool visible = false;
  const auto raised = guarded([&] { visible = readsColorBarVisible(arrangeView); });
  return !raised && visible;
}

void showArrangeUseTrackColorAlert() {
  if (NSUserDefaults::standardUserDefaults().boolForKey(skipWarningKey())) return;
  async(dispatch_get_main_queue(), runAlert);
}

void attachUtilityTrackColorWarning() {
  CategoryDefinition("Utility")
      .classMethod<"isArrangeColorBarVisible:", colorBarVisible>()
      .classMethod<"showArrangeUseTrackColorAlert", showAlert>()
      .method<"showUseTrackColorHelp", showHelp>();
  CategoryDefinition("ThemeUtility").method<"handleDocumentDidOpen:", handleDocumentDidOpen>();
  ThemeUtility::whenMade(observe);
}

}  // namespace velura
