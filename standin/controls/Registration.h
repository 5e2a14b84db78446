#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerCells();
void registerControls();
void registerTextFields();
void registerButtons();
void registerMenus();
void registerPopUpButtons();

}  // namespace standin
