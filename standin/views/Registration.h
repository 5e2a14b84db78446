#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerResponders();
void registerViews();
void registerBoxes();
void registerViewControllers();
void registerViewAccessibility();

}  // namespace standin
