#pragma once

#include "cocoa/ClassDefinition.h"

namespace host {

/// An open song's document. It can be found by its number for as long as it is open.
struct CLgSongDocument : cocoa::ObjectState {
  NSInteger songID = 0;
  cocoa::Ref<NSObject> song;
  NSObject unilibDocManager;  // outlives the document's being open

  ~CLgSongDocument() { closed(); }
  /// Gives the document the next number.
  void opened();
  void closed();
};

/// The open document of that number, or nil.
NSObject openSongDocument(NSInteger songID);

/// Tells everybody in the host that the document is open.
void announceOpened(NSObject document);

void defineCLgSongDocument();

}  // namespace host
