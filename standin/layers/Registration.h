#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerLayers();
void registerShapeLayers();
void registerGradientLayers();
void registerTransactions();

}  // namespace standin
