#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerThemeFrames();
void registerWindows();
void registerWindowControllers();
void registerApplications();
void registerEvents();
void registerAppearances();
void registerAlerts();
void registerWorkspaces();

}  // namespace standin
