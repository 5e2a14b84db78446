#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerImageReps();
void registerBitmapImageReps();
void registerImages();
void registerImageIO();
void registerBundleImages();
void registerBitmapContexts();

}  // namespace standin
