#include "host/arrange/CLgSongDocument.h"

#include <map>

namespace host {
namespace {

using namespace cocoa;

/// Not owned: a document leaves when it is closed.
std::map<NSInteger, id>& openDocuments() {
  static auto* documents = new std::map<NSInteger, id>();  // outlives every late release
  return *documents;
}

}  // namespace

void CLgSongDocument::opened() {
  static NSInteger next = 1;
  songID = next++;
  openDocuments()[songID] = self;
}

void CLgSongDocument::closed() { openDocuments().erase(songID); }

NSObject openSongDocument(NSInteger songID) {
  const auto found = openDocuments().find(songID);
  return found == openDocuments().end() ? NSObject() : NSObject(found->second);
}

void announceOpened(NSObject document) {
  const auto info = NSMutableDictionary::dictionary();
  info.setObject(document, literal<"CLgSongDocument">());
  NSNotificationCenter::defaultCenter().postNotificationName(
      literal<"CLgDocumentControllerNotification_documentDidOpen">(), NSObject(), info);
}

void defineCLgSongDocument() {
  ClassDefinition<CLgSongDocument>("CLgSongDocument", "NSObject")
      .getter<"songID", &CLgSongDocument::songID>()
      .getter<"unilibDocManager", &CLgSongDocument::unilibDocManager>()
      .registered();
}

}  // namespace host
