#pragma once
// What a user at the screen does about alerts and opened addresses.

#include <functional>
#include <string>

#include "cocoa/AppKit.h"

namespace standin {

/// Stands in for the user while an alert runs: may press buttons (`performClick:`) and tick boxes, and
/// answers the index of the button that ends the alert.
using AlertAnswer = std::function<NSUInteger(NSAlert alert)>;
/// Without an answer, every alert is ended by its default button.
void setAlertAnswer(AlertAnswer answer);

/// Told of every address that the workspace opens. Nothing is opened here.
void setOpenedURL(std::function<void(const std::string& address)> told);

}  // namespace standin
