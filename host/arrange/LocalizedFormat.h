#pragma once

#include <cstddef>

#include "cocoa/Foundation.h"

namespace host {

/// What a track header is called: its number and its track's name, as the user's language puts it.
NSString trackDescription(std::size_t number, NSString name);

/// How many of them were formatted to some text since the process started.
std::size_t formattedDescriptions();

}  // namespace host
