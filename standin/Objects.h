#pragma once
// How the stand-in makes objects of its own classes, and how its library starts.

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "cocoa/CoreGraphics.h"

namespace standin {

/// A new object of the class defined with `State`, owned by the caller.
template <class State>
id newObject() {
  return cocoa::send<id>(cocoa::DefinedClass<State>::cls, cocoa::selector<"alloc">());
}

/// The state behind a Core Foundation pointer that is known to be of the class defined with `State`.
template <class State>
State& stateBehind(CFTypeRef object) {
  return cocoa::stateOf<State>(cocoa::bridged(object));
}

template <class T>
T autoreleasedReference(T owned) {
  cocoa::send<id>(cocoa::bridged(owned).object, cocoa::selector<"autorelease">());
  return owned;
}

// Each class is registered by a function of its own file; Startup.cpp calls them, superclasses first.
void registerCoreGraphicsColors();
void registerCoreGraphicsPaths();
void registerCoreGraphicsImages();
void registerCoreGraphicsGradients();
void registerCoreGraphicsContexts();
void registerConstants();
void registerColors();
void registerColorSpaces();
void registerGradients();
void registerBezierPaths();
void registerImageReps();
void registerBitmapImageReps();
void registerImages();
void registerImageIO();
void registerBundleImages();
void registerGraphicsContexts();
void registerFonts();
void registerParagraphStyles();
void registerStringDrawing();
void registerLayers();
void registerShapeLayers();
void registerGradientLayers();
void registerTransactions();
void registerResponders();
void registerViews();
void registerCells();
void registerControls();
void registerTextFields();
void registerButtons();
void registerMenus();
void registerPopUpButtons();
void registerTables();
void registerOutlines();
void registerBoxes();
void registerViewControllers();
void registerThemeFrames();
void registerWindows();
void registerWindowControllers();
void registerApplications();
void registerViewAccessibility();
void registerEvents();
void registerAppearances();
void registerAlerts();
void registerWorkspaces();
void registerAssociations();
void registerUserDefaultsSuites();
void registerBundles();

}  // namespace standin
