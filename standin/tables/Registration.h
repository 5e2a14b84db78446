#pragma once
// Each registers the classes of its file; startup/Startup.cpp has the order.

namespace standin {

void registerTables();
void registerOutlines();

}  // namespace standin
