#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerCoreGraphicsGradients();
void registerCoreGraphicsContexts();
void registerGradients();
void registerBezierPaths();
void registerGraphicsContexts();
void registerColorDrawing();

}  // namespace standin
