#include "host/arrange/CLgDocumentManager.h"

namespace host {

using namespace cocoa;

NSArray CLgDocumentManager::visibleUnilibViews() {
  const auto views = NSMutableArray::array();
  if (view && view->window().isVisible()) views.addObject(view.get());
  return views;
}

void defineCLgDocumentManager() {
  ClassDefinition<CLgDocumentManager>("CLgDocumentManager", "NSObject")
      .getter<"songDocument", &CLgDocumentManager::songDocument>()
      .method<"visibleUnilibViews", &CLgDocumentManager::visibleUnilibViews>()
      .registered();
}

}  // namespace host
