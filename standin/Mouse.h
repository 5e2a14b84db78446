#pragma once
// For who still includes it from here.

#include "standin/steering/Mouse.h"
