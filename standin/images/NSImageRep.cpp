#include "standin/images/BitmapImageRep.h"
#include "standin/images/Registration.h"

using namespace cocoa;

namespace standin {

void registerImageReps() {
  ClassDefinition<ImageRepState>("NSImageRep", "NSObject")
      .property<"size", "setSize:", &ImageRepState::size>()
      .property<"pixelsWide", "setPixelsWide:", &ImageRepState::pixelsWide>()
      .property<"pixelsHigh", "setPixelsHigh:", &ImageRepState::pixelsHigh>()
      .property<"hasAlpha", "setAlpha:", &ImageRepState::alpha>()
      .registered();
}

}  // namespace standin
