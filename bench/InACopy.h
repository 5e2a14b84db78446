#pragma once

#include "host/app/Application.h"

namespace bench {

/// Does something in a copy of the process, where it has not happened yet, and counts the time that it took there.
void onceInACopy(host::Application& application, void (*work)(host::Application&));

}  // namespace bench
