#include "host/arrange/CLgFenster.h"

namespace host {

void defineCLgFenster() { cocoa::ClassDefinition<CLgFenster>("CLgFenster", "NSObject").registered(); }

}  // namespace host
