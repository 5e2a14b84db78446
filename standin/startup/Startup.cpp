// Linking the library is enough: it registers its classes when it is loaded, after Foundation, which it is
// linked to.

#include "cocoa/Call.h"
#include "cocoa/Foundation.h"
#include "standin/color/Registration.h"
#include "standin/controls/Registration.h"
#include "standin/drawing/Registration.h"
#include "standin/foundation/Registration.h"
#include "standin/images/Registration.h"
#include "standin/layers/Registration.h"
#include "standin/paths/Registration.h"
#include "standin/pixels/Registration.h"
#include "standin/runtime/Registration.h"
#include "standin/tables/Registration.h"
#include "standin/text/Registration.h"
#include "standin/views/Registration.h"
#include "standin/windows/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// Foundation writes geometry as the platform does only when told so: "{{0, 0}, {84, 598}}".
void writeGeometryAsThePlatformDoes() {
  const auto settings = NSMutableDictionary::dictionary();
  settings.setObject(NSNumber::numberWithBool(true), literal<"GSMacOSXCompatible">());
  call<"registerDefaults:">(NSUserDefaults::standardUserDefaults(), settings);
}

/// Superclasses come before their subclasses.
constexpr void (*kRegistrations[])() = {
    registerConstants,
    registerAssociations,
    registerCoreGraphicsColors,
    registerCoreGraphicsPaths,
    registerCoreGraphicsImages,
    registerCoreGraphicsGradients,
    registerCoreGraphicsContexts,
    registerColorSpaces,
    registerColors,
    registerGradients,
    registerBezierPaths,
    registerImageReps,
    registerBitmapImageReps,
    registerImages,
    registerImageIO,
    registerGraphicsContexts,
    registerBitmapContexts,
    registerColorDrawing,
    registerFonts,
    registerParagraphStyles,
    registerStringDrawing,
    registerLayers,
    registerShapeLayers,
    registerGradientLayers,
    registerTransactions,
    registerResponders,
    registerViews,
    registerCells,
    registerControls,
    registerTextFields,
    registerButtons,
    registerMenus,
    registerPopUpButtons,
    registerTables,
    registerOutlines,
    registerBoxes,
    registerViewControllers,
    registerThemeFrames,
    registerWindows,
    registerWindowControllers,
    registerApplications,
    registerViewAccessibility,
    registerEvents,
    registerAppearances,
    registerAlerts,
    registerWorkspaces,
    registerUserDefaultsSuites,
    registerBundles,
    registerBundleImages,
};

[[gnu::constructor]] void start() {
  const AutoreleasePool pool;
  for (const auto registration : kRegistrations) registration();
  writeGeometryAsThePlatformDoes();
}

}  // namespace

}  // namespace standin
