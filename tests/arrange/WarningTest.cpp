// The warning about track colours that the host's colour bars do not show.

#include <gtest/gtest.h>

#include <utility>

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "host/arrange/CLgSongDocument.h"
#include "standin/steering/Desk.h"
#include "standin/steering/RunLoop.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using namespace support;

NSString skipKey() { return literal<"SkipTrackColorWarning">(); }
NSUserDefaults defaults() { return NSUserDefaults::standardUserDefaults(); }

class TrackColorWarning : public HostTest {
 protected:
  /// Opens a song whose headers show colour bars or not, under a theme that asks for track colours or not.
  void open(bool bars, bool tracks = true) {
    standin::setAlertAnswer([this](NSAlert alert) {
      ++alerts_;
      whileItRuns_(alert);
      return NSUInteger(0);
    });
    standin::setOpenedURL([this](const std::string& address) { opened_.push_back(address); });
    host::Song song;
    song.arrange.headers.colorBars = bars;
    startWith(writeTheme(ThemeFile().flag("useTrackColorAsArrangeStripBackground", tracks).list()), song);
  }
  /// How many alerts have run since this was asked last, with those that are due now.
  int alerts() {
    standin::runMainQueue();
    return std::exchange(alerts_, 0);
  }
  void announce() const { host::announceOpened(application_->arrange().document()); }

  int alerts_ = 0;
  std::vector<std::string> opened_;
  std::function<void(NSAlert)> whileItRuns_ = [](NSAlert) {};
};

TEST_F(TrackColorWarning, ComesOnceForADocumentWithoutColorBars) {
  open(false);
  EXPECT_EQ(alerts_, 0) << "not while the document opens";
  EXPECT_EQ(alerts(), 1);
  EXPECT_EQ(alerts(), 0);
  announce();
  EXPECT_EQ(alerts(), 1) << "the next document";
  EXPECT_FALSE(defaults().boolForKey(skipKey()));
}

TEST_F(TrackColorWarning, ComesOnceForARefreshOfSeveralWindows) {
  open(false);
  application_->openWindow(host::WindowKind::kLists);
  application_->openWindow(host::WindowKind::kLibrary);
  alerts();
  call<"refreshWindows">(newObject("LoaderClass").get());
  EXPECT_EQ(alerts(), 1) << "three windows hide their bars";
}

TEST_F(TrackColorWarning, StaysAwayWhereNothingIsWrong) {
  eachInChild({std::pair(true, true), std::pair(false, false), std::pair(true, false)}, [&](const auto& c) {
    const auto [bars, tracks] = c;
    open(bars, tracks);
    EXPECT_EQ(alerts(), 0);
    const NSObject view = application_->arrange().arrangeView();
    EXPECT_EQ((call<"isArrangeColorBarVisible:", BOOL>(classNamed("Utility"), view)) != 0, bars);
  });
}

TEST_F(TrackColorWarning, SaysWhatToDo) {
  whileItRuns_ = [](NSAlert alert) {
    EXPECT_EQ(alert.buttons().count(), 2U);
    EXPECT_EQ(toStdString(cast<NSButton>(alert.buttons().objectAtIndex(0)).title()), "Close");
    EXPECT_EQ(toStdString(cast<NSButton>(alert.buttons().objectAtIndex(1)).title()), "Help");
    EXPECT_EQ(toStdString(alert.messageText()), "Velura Use Track Color Warning");
    const std::string text = toStdString(alert.informativeText());
    EXPECT_TRUE(text.starts_with("Track header color not enabled in this ")) << text;
    EXPECT_TRUE(
        text.ends_with(" Project. Please navigate to one of the track headers in your project and right click "
                       "onto track header in Arrange Area > Track Header Components > Track Color Bars, to "
                       "activate track colors."))
        << text;
    EXPECT_EQ(alert.alertStyle(), NSAlertStyleWarning);
    EXPECT_TRUE(alert.window().appearance().isEqual(NSAppearance::appearanceNamed(NSAppearanceNameVibrantDark)));
    EXPECT_TRUE(alert.showsSuppressionButton());
    EXPECT_EQ(toStdString(alert.suppressionButton().title()), "Don't show this again");
  };
  open(false);
  EXPECT_EQ(alerts(), 1);
}

TEST_F(TrackColorWarning, HelpsAndStaysOpen) {
  whileItRuns_ = [this](NSAlert alert) {
    const auto help = cast<NSButton>(alert.buttons().objectAtIndex(1));
    call<"performClick:">(help, NSObject());
    call<"performClick:">(help, NSObject());
    EXPECT_EQ(opened_.size(), 2U) << "while the alert runs";
  };
  open(false);
  EXPECT_EQ(alerts(), 1);
  ASSERT_EQ(opened_.size(), 2U);
  EXPECT_TRUE(opened_[0].starts_with("https://")) << opened_[0];
}

TEST_F(TrackColorWarning, IsGivenNoMoreToWhoeverDoesNotWantIt) {
  whileItRuns_ = [](NSAlert alert) { call<"performClick:">(alert.suppressionButton(), NSObject()); };
  open(false);
  EXPECT_EQ(alerts(), 1);
  EXPECT_TRUE(defaults().boolForKey(skipKey()));
  announce();
  EXPECT_EQ(alerts(), 0);
  call<"showArrangeUseTrackColorAlert">(classNamed("Utility"));
  EXPECT_EQ(alerts(), 0);
  defaults().setBool(false, skipKey());
  call<"showArrangeUseTrackColorAlert">(classNamed("Utility"));
  EXPECT_EQ(alerts(), 1);
}

NSDictionary noConfiguration(Class /*self*/, NSObject /*window*/) { return {}; }
NSDictionary shortConfiguration(Class /*self*/, NSObject /*window*/) {
  const auto configuration = NSMutableDictionary::dictionary();
  configuration.setObject(NSArray::array(), literal<"trackelemShow">());
  return configuration;
}

TEST_F(TrackColorWarning, CountsBarsAsHiddenThatCannotBeAskedFor) {
  open(true);
  EXPECT_EQ(alerts(), 0);
  const Class controller = metaclassOf(classNamed("TrackHeaderConfigController"));
  detail::replaceFunction<"createSaveConfigDict:", noConfiguration>(controller);
  announce();
  EXPECT_EQ(alerts(), 1);
  detail::replaceFunction<"createSaveConfigDict:", shortConfiguration>(controller);  // reading it raises
  announce();
  EXPECT_EQ(alerts(), 1);
}

TEST_F(TrackColorWarning, IsNotMovedByOtherDocuments) {
  open(false);
  alerts();
  const auto post = [](NSObject document) {
    const auto info = NSMutableDictionary::dictionary();
    if (document) info.setObject(document, literal<"CLgSongDocument">());
    NSNotificationCenter::defaultCenter().postNotificationName(
        literal<"CLgDocumentControllerNotification_documentDidOpen">(), NSObject(), info);
  };
  post(NSObject());
  post(string("no document"));
  const auto closed = newObject("CLgSongDocument");
  post(closed);
  EXPECT_EQ(alerts(), 0);
}

}  // namespace
