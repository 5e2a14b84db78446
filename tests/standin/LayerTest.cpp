// The compositing of layers.

#include <gtest/gtest.h>

#include "Canvas.h"
#include "cocoa/ClassDefinition.h"

namespace {

using namespace cocoa;
using namespace support;

CALayer colored(char name, CGRect frame) {
  const CALayer layer = CALayer::layer();
  layer.setFrame(frame);
  layer.setBackgroundColor(letter(name).CGColor());
  return layer;
}

/// Three by one, a quarter turn about its lower left corner at (2, 1).
CALayer turned() {
  const CALayer layer = colored('G', {{0, 0}, {3, 1}});
  layer.setAnchorPoint({0, 0});
  layer.setPosition({2, 1});
  layer.setAffineTransform({0, 1, -1, 0, 0, 0});
  layer.addSublayer(colored('B', {{0, 0}, {1, 1}}));
  return layer;
}

/// The picture of two points by two for two pixels a point.
NSImageRep denser() {
  const auto image = imageOf({"GGGG", "BBBB", "GGGG", "BBBB"});
  const auto rep = cast<NSImageRep>(image->representations().objectAtIndex(0));
  rep.setSize({2, 2});
  return autoreleased(Ref<NSImageRep>(rep));
}

struct Composition {
  const char* name;
  void (*arrange)(CALayer root);
  const char* art;
};

/// On a red root of 4 by 4.
constexpr Composition kCompositions[] = {
    {"a sublayer lies in its superlayer, y up",
     [](CALayer root) {
       root.addSublayer(colored('G', {{1, 0}, {2, 1}}));
     },
     "RRRR\nRRRR\nRRRR\nRGGR\n"},
    {"in flipped geometry it is laid out from the top, and so are the ones below",
     [](CALayer root) {
       root.setGeometryFlipped(true);
       const CALayer middle = colored('G', {{0, 0}, {4, 3}});
       middle.addSublayer(colored('B', {{0, 0}, {1, 1}}));
       root.addSublayer(middle);
     },
     "BGGG\nGGGG\nGGGG\nRRRR\n"},
    {"a moved anchor moves the layer",
     [](CALayer root) {
       const CALayer layer = colored('G', {{0, 0}, {2, 2}});
       layer.setAnchorPoint({0, 0});
       layer.setPosition({2, 2});
       root.addSublayer(layer);
     },
     "RRGG\nRRGG\nRRRR\nRRRR\n"},
    {"later over earlier, but depth first",
     [](CALayer root) {
       const CALayer deep = colored('G', {{0, 0}, {3, 1}});
       deep.setZPosition(1);
       root.addSublayer(deep);
       root.addSublayer(colored('B', {{1, 0}, {3, 1}}));
       root.addSublayer(colored('W', {{3, 0}, {1, 1}}));
     },
     "RRRR\nRRRR\nRRRR\nGGGW\n"},
    {"hidden and empty layers show nothing",
     [](CALayer root) {
       const CALayer hidden = colored('G', {{0, 0}, {4, 4}});
       hidden.setHidden(true);
       const CALayer clear = colored('B', {{0, 0}, {4, 4}});
       clear.setOpacity(0);
       root.addSublayer(hidden);
       root.addSublayer(clear);
       root.addSublayer(CALayer::layer());
     },
     "RRRR\nRRRR\nRRRR\nRRRR\n"},
    {"the border lies over the sublayers, inside the bounds",
     [](CALayer root) {
       root.addSublayer(colored('G', {{0, 0}, {4, 4}}));
       root.setBorderColor(letter('K').CGColor());
       root.setBorderWidth(1);
     },
     "KKKK\nKGGK\nKGGK\nKKKK\n"},
    {"sublayers reach out of their superlayer unless it masks to its bounds",
     [](CALayer root) {
       root.setBackgroundColor(nullptr);
       for (const bool masks : {false, true}) {
         const CALayer box = colored('B', {{0, masks ? 0.0 : 2.0}, {2, 2}});
         box.setMasksToBounds(masks);
         box.addSublayer(colored('G', {{1, 0}, {2, 1}}));
         root.addSublayer(box);
       }
     },
     "BB..\nBGG.\nBB..\nBG..\n"},
    {"a mask keeps what it covers",
     [](CALayer root) {
       root.addSublayer(colored('G', {{0, 0}, {4, 1}}));
       root.setMask(colored('K', {{1, 0}, {2, 3}}));
     },
     "....\n.RR.\n.RR.\n.GG.\n"},
    {"contents stretch", [](CALayer root) { root.setContents(imageOf({"G"})); }, "GGGG\nGGGG\nGGGG\nGGGG\n"},
    {"contents at the top right",
     [](CALayer root) {
       root.setContentsGravity(kCAGravityTopRight);
       root.setContents(imageOf({"GB"}));
     },
     "RRGB\nRRRR\nRRRR\nRRRR\n"},
    {"contents in the middle, two points a pixel",
     [](CALayer root) {
       root.setContentsGravity(kCAGravityCenter);
       root.setContentsScale(0.5);
       root.setContents(imageOf({"G"}));
     },
     "RRRR\nRGGR\nRGGR\nRRRR\n"},
    {"contents of several densities: the one for the scale, also when it changes",
     [](CALayer root) {
       const auto image = imageOf({"WW", "WW"});
       image->addRepresentation(denser());
       root.setContents(image.get());
       const Canvas before(4, 4);
       root.renderInContext(before.context());
       EXPECT_EQ(before.at(0, 0), 0xFFFFFFFF);
       root.setContentsScale(2);
     },
     "GGGG\nBBBB\nGGGG\nBBBB\n"},
    {"a turned layer turns about its anchor, with what lies in it", [](CALayer root) { root.addSublayer(turned()); },
     "RGRR\nRGRR\nRBRR\nRRRR\n"},
    {"in flipped geometry it turns the other way",
     [](CALayer root) {
       root.setGeometryFlipped(true);
       root.addSublayer(turned());
     },
     "RRRR\nRBRR\nRGRR\nRGRR\n"},
    {"a shape layer fills and strokes its path",
     [](CALayer root) {
       const CAShapeLayer shape = CAShapeLayer::layer();
       shape.setFrame({{0, 0}, {4, 4}});
       shape.setPath(CFRef<CGPathRef>::adopt(CGPathCreateWithRect({{1, 1}, {2, 2}}, nullptr)));
       shape.setFillColor(letter('W').CGColor());
       root.addSublayer(shape);
     },
     "RRRR\nRWWR\nRWWR\nRRRR\n"},
    {"a gradient layer",
     [](CALayer root) {
       const CAGradientLayer layer = CAGradientLayer::layer();
       layer.setFrame({{0, 0}, {4, 4}});
       const id colors[] = {bridged(letter('G').CGColor()).object, bridged(letter('G').CGColor()).object,
                            bridged(letter('B').CGColor()).object, bridged(letter('B').CGColor()).object};
       const id places[] = {NSNumber::numberWithDouble(0).object, NSNumber::numberWithDouble(0.25).object,
                            NSNumber::numberWithDouble(0.25).object, NSNumber::numberWithDouble(1).object};
       layer.setColors(NSArray::arrayWithObjects(colors, 4));
       layer.setLocations(NSArray::arrayWithObjects(places, 4));
       root.addSublayer(layer);
     },
     "BBBB\nBBBB\nBBBB\nGGGG\n"},
};

TEST(Layer, ComposesThesePictures) {
  const AutoreleasePool pool;
  for (const Composition& c : kCompositions) {
    const Canvas canvas(4, 4);
    const CALayer root = colored('R', {{0, 0}, {4, 4}});
    c.arrange(root);
    root.renderInContext(canvas.context());
    EXPECT_EQ(canvas.art(), c.art) << c.name;
  }
}

TEST(Layer, FadesAsOnePicture) {
  const AutoreleasePool pool;
  const Canvas canvas(2, 1);
  const CALayer root = colored('R', {{0, 0}, {2, 1}});
  root.addSublayer(colored('G', {{0, 0}, {1, 1}}));
  root.setOpacity(0.5);
  root.renderInContext(canvas.context());
  EXPECT_EQ(canvas.at(0, 0), 0x00800080U) << "no red shines through the green";
  EXPECT_EQ(canvas.at(1, 0), 0x80000080U);
}

TEST(Layer, RoundsItsCorners) {
  const AutoreleasePool pool;
  const auto cornerAndMiddle = [](CALayer layer) {
    const Canvas canvas(8, 8);
    layer.renderInContext(canvas.context());
    return std::pair(canvas.at(0, 0), canvas.at(4, 4));
  };
  const CALayer layer = colored('R', {{0, 0}, {8, 8}});
  layer.setCornerRadius(4);
  EXPECT_EQ(cornerAndMiddle(layer), std::pair(0U, 0xff0000ffU));
  layer.addSublayer(colored('G', {{0, 0}, {8, 8}}));
  EXPECT_EQ(cornerAndMiddle(layer), std::pair(0x00ff00ffU, 0x00ff00ffU)) << "sublayers are not cut";
  layer.setMasksToBounds(true);
  EXPECT_EQ(cornerAndMiddle(layer), std::pair(0U, 0x00ff00ffU)) << "unless the layer masks";
}

/// Draws its letter, and counts.
struct Drawing : ObjectState {
  int drawn = 0;
  void drawLayer(CALayer layer, CGContextRef context) {
    ++drawn;
    CGContextSetFillColorWithColor(context, letter('B').CGColor());
    CGContextFillRect(context, {{0, 0}, {layer.bounds().size.width / 2, layer.bounds().size.height}});
  }
};

TEST(Layer, AsksItsDelegateToDrawOnceItIsDue) {
  const AutoreleasePool pool;
  ClassDefinition<Drawing>("LayerTestDrawing", "NSObject")
      .method<"drawLayer:inContext:", &Drawing::drawLayer>()
      .registered();
  const auto delegate = Ref<NSObject>::adopt(
      NSObject(send<id>(send<id>(classNamed<"LayerTestDrawing">(), selector<"alloc">()), selector<"init">())));
  const CALayer layer = colored('R', {{0, 0}, {4, 1}});
  layer.setDelegate(delegate);
  layer.setNeedsDisplay();
  for (int frame = 0; frame < 2; ++frame) {
    const Canvas canvas(4, 1);
    layer.renderInContext(canvas.context());
    EXPECT_EQ(canvas.art(), "BBRR\n");
  }
  EXPECT_EQ(stateOf<Drawing>(delegate).drawn, 1);
  EXPECT_FALSE(layer.needsDisplay());
  layer.setDelegate({});
}

}  // namespace
