#include "host/arrange/CLgSong.h"

namespace host {

void defineCLgSong() { cocoa::ClassDefinition<CLgSong>("CLgSong", "NSObject").registered(); }

}  // namespace host
