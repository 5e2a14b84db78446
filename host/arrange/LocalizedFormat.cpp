#include "host/arrange/LocalizedFormat.h"

namespace host {
namespace {

using namespace cocoa;

std::size_t formatted = 0;

}  // namespace

NSString trackDescription(std::size_t number, NSString name) {
  // A variadic method is called through its own type: where its arguments lie differs from a plain one's.
  using Format = id (*)(id, SEL, id, ...);
  const id strings = asObject(classNamed<"NSString">());
  const SEL sel = selector<"localizedStringWithFormat:">();
  const auto format = reinterpret_cast<Format>(reinterpret_cast<void (*)()>(objc_msg_lookup(strings, sel)));
  const NSString text(format(strings, sel, literal<"Track %ld “%@”">().object, static_cast<long>(number), name.object));
  if (text.length() > 0) ++formatted;
  return text;
}

std::size_t formattedDescriptions() { return formatted; }

}  // namespace host
